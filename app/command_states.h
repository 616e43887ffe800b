// The one place that decides which commands of the main window are offered.
#pragma once

#include "platform/rich_text.h"
#include "platform/window.h"

namespace varno {

// What happened in the window or on the line.
enum class CommandEvent {
    UploadStarted,  // the port is open
    ImageBegins,    // of an upload
    UploadEnded,    // complete
    TransferEnded,
    DownloadStarted,  // confirmed, the port not open yet
    VarnoMenuOpens,
    FileMenuOpens,
    BlockOpened,
    TicketPut,
    TicketDeleted,
    NumberChanged,
    ListSelected,
    EditorChanged,
    EditorFocused,
};

class CommandStates {
  public:
    explicit CommandStates(Window& window);

    // Applies every row of the table that answers to the event, in the table's order.
    void On(CommandEvent event);

  private:
    Window& window_;
    ListBox& ticketList_;
    RichTextBox& richText_;
};

}  // namespace varno
