// Rich text: what was read can be saved and read again.
#include "platform/rtf/rtf_reader.h"

#include "fuzz/fuzz.h"
#include "platform/rtf/rtf_writer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace varno;
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    MarkedText text;
    MarkedText again;
    if (!LoadMarkedText(bytes, text)) {
        Must(text.Length() <= size);
        Must(!LoadMarkedText(WriteRtf(text), again) && again.Text() == text.Text());
    }
    return 0;
}
