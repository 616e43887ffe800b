// Feeds anything to the rich text reader: it must not crash, hang or grow, and what it read can be
// saved and read again.
#include "platform/rtf/rtf_reader.h"

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "platform/rtf/rtf_writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    varno::MarkedText text;
    varno::MarkedText again;
    if (varno::LoadMarkedText(bytes, text)) {
        return 0;
    }
    if (text.Length() > size || varno::LoadMarkedText(varno::WriteRtf(text), again) ||
        again.Text() != text.Text()) {
        std::abort();
    }
    return 0;
}
