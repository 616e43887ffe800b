// Binding tickets to the indicator's keys. The rows lead: KeyTicket follows them, and the image
// follows KeyTicket.
#pragma once

#include <utility>

#include "block/block_controls.h"
#include "block/ticket_block.h"
#include "platform/announce.h"

namespace varno {

class KeyAssignmentCommand {
  public:
    KeyAssignmentCommand(const BlockControls& controls, TicketBlock& block, Announce announce)
        : controls_(controls), block_(block), announce_(std::move(announce)) {}

    // Without a selected row nothing is bound and all buttons are released. Otherwise
    // binds the selected row to the key whose button is pressed by now, or unbinds it where the
    // button is released. Runs once for each time the button is used, by mouse or keyboard.
    void KeyAssignment_MouseUp(int index);
    // A key letter presses its button, a blank releases all.
    void TicketList_KeyPress(char32_t character);

  private:
    void PressOnly(int index);
    void AssignRows(int index, bool bind);

    BlockControls controls_;
    TicketBlock& block_;
    Announce announce_;
};

}  // namespace varno
