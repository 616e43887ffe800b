// The question asked before unsaved changes would be lost.
#pragma once

#include <functional>

#include "platform/dialogs.h"

namespace varno {

struct UnsavedQuestion {
    const char* text;
    const char* title;
};

inline constexpr UnsavedQuestion UnsavedTicket = {"Save the current ticket?", "Ticket changed"};
inline constexpr UnsavedQuestion UnsavedBlock = {"Save the current ticket block?",
                                                 "Ticket block changed"};

// Asks while `changed` is set; Yes runs `save`, which clears it unless the save is called off.
// Returns whether to go on: false only after Cancel. `buttons` is YesNo or YesNoCancel.
bool AskToSave(Dialogs& dialogs, const UnsavedQuestion& question, Buttons buttons,
               const bool& changed, const std::function<void()>& save);

}  // namespace varno
