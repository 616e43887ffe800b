// The number box and the Put command: the ticket of the editor goes into the block.
#pragma once

#include <utility>

#include "block/block_controls.h"
#include "block/ticket_block.h"
#include "platform/announce.h"
#include "platform/dialogs.h"

namespace varno {

class PutCommand {
  public:
    PutCommand(const BlockControls& controls, Dialogs& dialogs, TicketBlock& block,
               Announce announce)
        : controls_(controls), dialogs_(dialogs), block_(block), announce_(std::move(announce)) {}

    // True keeps the character.
    static bool TicketNumber_KeyPress(char32_t character);
    void TicketNumber_Change();
    void PutButton_Click();

  private:
    bool ConfirmOverwriting(int ticketNumber);
    void PutTicket();
    int RemoveOlderRow(int ticketNumber);

    BlockControls controls_;
    Dialogs& dialogs_;
    TicketBlock& block_;
    Announce announce_;
};

}  // namespace varno
