// Blocks as text: what was read fits into the memory, comes back of its image and of its own text.
#include "block/block_text.h"

#include "block/block_compare.h"
#include "block/image.h"
#include "fuzz/fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace varno;
    const auto read = ReadBlockText({reinterpret_cast<const char*>(data), size});
    if (const auto* fault = std::get_if<BlockTextFault>(&read)) {
        Must(fault->line > 0 && fault->column > 0 && !fault->what.empty());
        return 0;
    }
    const auto& block = std::get<BlockContent>(read);
    const std::string image = ImageOf(block);
    Must(image.size() == ImageLength && ImageOf(ContentOf(image)) == image);
    Must(std::get<BlockContent>(ReadBlockText(BlockText(block))) == block);
    Must(Merge(block, {}, block).conflicts.empty() && Differences(block, block, {}).empty());
    return 0;
}
