// Gives the history what a command is about to take away, and what is unsaved.
#pragma once

#include <string>

#include "app/working_state.h"
#include "history/history_keeper.h"
#include "platform/announce.h"
#include "platform/rich_text.h"
#include "platform/serial/serial_control.h"

namespace varno {

class Safekeeping {
  public:
    struct Sources {
        RichTextBox& RichText;
        Label& TicketName;
        Label& ListName;
        const SerialControl& MSComm1;
        const WorkingState& state;
    };

    explicit Safekeeping(const Sources& sources) : sources_(sources), keeper_(HistoryFolder()) {}

    // Makes every copy that the table names for the event.
    void On(CommandEvent event);

    // Keeps the file that a save of this kind is about to replace, as it is; says why it cannot.
    Error BeforeReplacing(const std::string& path, CopyKind kind);
    // The save is done.
    void AfterReplacing(const Error& unkept) { unkept_ = unkept; }

    // The copy of unsaved work is in the window again.
    void Resume(const Copy& copy) { keeper_.Resume(copy); }

    // Whether copies are still being made.
    bool IsBusy() { return keeper_.IsBusy(); }

    // For the operator: what is not kept and why, until a later copy or save makes up for it. Empty
    // if nothing is missing.
    std::string Missing();

  private:
    void KeepTicket(Cause cause);
    void KeepBlock(Cause cause, const std::string& port);

    Sources sources_;
    HistoryKeeper keeper_;
    Error unkept_;               // why the file that was replaced last is not kept
    bool ticketIsKept_ = false;  // as it stands, unless there was trouble
};

}  // namespace varno
