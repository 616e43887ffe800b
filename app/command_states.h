// The one place that decides which commands of the main window are offered.
#pragma once

#include "platform/announce.h"
#include "platform/rich_text.h"
#include "platform/window.h"

namespace varno {

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
