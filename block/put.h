// The number box and the Put command: the ticket of the editor goes into the block.
#pragma once

#include <functional>

#include "block/block_controls.h"
#include "block/ticket_block.h"
#include "platform/dialogs.h"

namespace varno {

class PutCommand {
  public:
    PutCommand(const BlockControls& controls, Dialogs& dialogs, TicketBlock& block)
        : controls_(controls), dialogs_(dialogs), block_(block) {}

    std::function<void()> OnNumberChanged;  // the text of the number box changed
    std::function<void()> OnPutEnded;       // put, or refused; not after No to overwriting

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
};

}  // namespace varno
