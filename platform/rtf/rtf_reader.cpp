#include "platform/rtf/rtf_reader.h"

#include <algorithm>
#include <utility>

#include "codec/text_limits.h"
#include "platform/rtf/interpreter.h"

namespace varno {

Error ReadRtf(std::string_view bytes, RtfDocument& document, std::size_t longest) {
    constexpr std::string_view ByteOrderMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(ByteOrderMark)) {
        bytes.remove_prefix(ByteOrderMark.size());
    }
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n\f\v"), bytes.size()));
    if (!bytes.starts_with("{\\rtf") && !bytes.starts_with("{\\urtf")) {
        return "The file is not a rich text (RTF) document.";
    }
    document = {};
    if (!RtfInterpreter(bytes, document).Run(longest)) {
        return TooLongForATicket;
    }
    return std::nullopt;
}

Error LoadMarkedText(std::string_view bytes, MarkedText& text) {
    if (bytes.size() > MostTicketFileBytes) {
        return "The file is too long for a ticket.";
    }
    RtfDocument document;
    if (Error error = ReadRtf(bytes, document, MostCharacters + LineBreak.size())) {
        return error;
    }
    MarkedText read = ToMarkedText(document);
    if (!FitsEditor(SizeOf(read.Text()))) {
        return TooLongForATicket;
    }
    text = std::move(read);
    return std::nullopt;
}

}  // namespace varno
