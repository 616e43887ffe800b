// The working state of the program, for its whole run.
#pragma once

#include <string>

#include "block/ticket_block.h"

namespace varno {

// The folders last used, each with its separator at the end, or empty.
struct Folders {
    std::string LoadTicketFolder;
    std::string SaveTicketFolder;
    std::string LoadListFolder;
    std::string SaveListFolder;
};

struct WorkingState {
    TicketBlock block;
    bool TicketChanged = false;  // since the ticket was last loaded, saved or taken from the block
    Folders folders;
};

}  // namespace varno
