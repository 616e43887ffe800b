// The Delete command: the selected ticket leaves the block.
#pragma once

#include <utility>

#include "block/block_controls.h"
#include "block/ticket_block.h"
#include "platform/announce.h"

namespace varno {

class DeleteCommand {
  public:
    DeleteCommand(const BlockControls& controls, TicketBlock& block, Announce announce)
        : controls_(controls), block_(block), announce_(std::move(announce)) {}

    void DeleteButton_Click();  // nothing without a selected row

  private:
    BlockControls controls_;
    TicketBlock& block_;
    Announce announce_;
};

}  // namespace varno
