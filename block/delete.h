// The Delete command: the selected ticket leaves the block.
#pragma once

#include <functional>

#include "block/block_controls.h"
#include "block/ticket_block.h"

namespace varno {

class DeleteCommand {
  public:
    DeleteCommand(const BlockControls& controls, TicketBlock& block)
        : controls_(controls), block_(block) {}

    std::function<void()> OnDeleted;

    void DeleteButton_Click();  // nothing without a selected row

  private:
    BlockControls controls_;
    TicketBlock& block_;
};

}  // namespace varno
