// What happens in the window and on the line, told as it happens. A part announces; it does not
// know which commands are offered because of it.
#pragma once

#include <functional>

namespace varno {

enum class CommandEvent {
    UploadStarted,  // the port is open, the indicator may send
    ImageBegins,    // of an upload: the list has been emptied, block and editor will be
    UploadEnded,    // the image is complete, the list shows it
    TransferEnded,
    DownloadStarted,  // confirmed, the port not open yet
    DownloadEnded,    // the line has taken the whole block, and it is still the open one
    VarnoMenuOpens,
    FileMenuOpens,
    BlockOpened,
    PutEnded,  // the ticket was put or refused; not after No to overwriting
    TicketDeleted,
    KeyAssigned,
    TicketSaved,
    BlockSaved,
    NumberChanged,  // the text of the number box
    ListSelected,   // a row was selected, or the list came back to it
    EditorChanged,
    EditorFocused,

    // Told before it happens, so that what goes can be kept.
    TicketDeletes,     // from the block
    TicketOverwrites,  // another of the block
    BlockOpens,        // in place of the present one
    TicketOpens,       // from a file, in place of the editor's
    TicketIsEdited,    // from the block, in place of the editor's
    Closes,            // the program; all questions have been answered
    TimePasses,        // again and again
};

// Never empty.
using Announce = std::function<void(CommandEvent)>;

}  // namespace varno
