#include "platform/rtf/rtf_reader.h"

#include <algorithm>

#include "platform/rtf/interpreter.h"

namespace varno {

Error ReadRtf(std::string_view bytes, RtfDocument& document) {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(ByteOrderMark)) {
        bytes.remove_prefix(ByteOrderMark.size());
    }
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n\f\v"), bytes.size()));
    if (!bytes.starts_with("{\\rtf") && !bytes.starts_with("{\\urtf")) {
        return "The file is not a rich text (RTF) document.";
    }
    document = {};
    RtfInterpreter(bytes, document).Run();
    return std::nullopt;
}

Error LoadMarkedText(std::string_view bytes, MarkedText& text) {
    RtfDocument document;
    if (Error error = ReadRtf(bytes, document)) {
        return error;
    }
    text = ToMarkedText(document);
    return std::nullopt;
}

}  // namespace varno
