#pragma once

#include "block/ticket_block.h"
#include "platform/controls.h"

namespace varno {

// Shows the block's tickets: clears `message`, adds a row for each ticket and marks the rows of
// bound tickets. Rows that the list holds already stay: the caller clears it first.
void ParseTicketBuffer(TicketBlock& block, ListBox& ticketList, Label& message);

}  // namespace varno
