// What the simulated indicator's ticket memory holds at the start.
#pragma once

#include <string>
#include <vector>

#include "block/image.h"

namespace varno {

struct Memory {
    std::string image = NewTicketBuffer();
    std::vector<std::string> faults;  // of the block file, a sentence each
};

// What a block file holds; without one (an empty name) an empty memory. A file with faults in it is
// taken if it has the form of an image. Throws std::runtime_error with a sentence for the operator.
Memory LoadMemory(const std::string& blockFile);

}  // namespace varno
