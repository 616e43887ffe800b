// Reads rich text (RTF) of any writer.
#pragma once

#include <string_view>

#include "codec/marked_text.h"
#include "platform/error.h"
#include "platform/rtf/rtf_document.h"

namespace varno {

// Refuses only what does not begin as rich text does, a byte-order mark and white space aside. Of a
// damaged or cut document it reads what is there, in time and memory proportional to its length.
[[nodiscard]] Error ReadRtf(std::string_view bytes, RtfDocument& document);

// The text with the colour and the four styles of every character. Paragraphs, line breaks and the
// rows of tables end with CR LF, the cells of a row are separated by tabs. Left out are pictures,
// the bullets and numbers of lists, and the end of the last paragraph. Automatic colour is black.
MarkedText ToMarkedText(const RtfDocument& document);

// Both in one; a refused document leaves `text` as it is.
[[nodiscard]] Error LoadMarkedText(std::string_view bytes, MarkedText& text);

}  // namespace varno
