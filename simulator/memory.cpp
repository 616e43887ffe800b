#include "simulator/memory.h"

#include <stdexcept>

#include "block/block_file.h"
#include "platform/files.h"

namespace varno {

Memory LoadMemory(const std::string& blockFile) {
    if (blockFile.empty()) {
        return {};
    }
    std::string bytes;
    if (const Error error = ReadFile(blockFile, bytes, MostBlockFileBytes)) {
        throw std::runtime_error(*error);
    }
    Memory memory{ImageIn(bytes), FaultsInBlockFile(bytes)};
    if (memory.image.size() != ImageLength || !IsImage(memory.image)) {
        throw std::runtime_error(blockFile + " is no ticket block. " + memory.faults.front());
    }
    return memory;
}

}  // namespace varno
