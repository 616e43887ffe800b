// Reads rich text (RTF) of any writer.
#pragma once

#include <cstddef>
#include <string_view>

#include "codec/marked_text.h"
#include "platform/error.h"
#include "platform/rtf/rtf_document.h"

namespace varno {

// Refuses what does not begin as rich text does, a byte-order mark and white space aside, and stops
// at a text of more than `longest` UTF-16 units. Of a damaged or cut document it reads what is
// there, in time and memory proportional to its length.
[[nodiscard]] Error ReadRtf(std::string_view bytes, RtfDocument& document,
                            std::size_t longest = std::string_view::npos);

// The text with the colour and the four styles of every character. Paragraphs, line breaks and the
// rows of tables end with CR LF, the cells of a row are separated by tabs. Text in a drawn box
// stands in front of the paragraph that holds the box. Automatic colour is black. Left out are
// headers and footers, foot- and endnotes, comments, hidden text and what tracked changes deleted,
// index entries and bookmarks, the instructions of fields, titles and other facts about the
// document, pictures, letters bent along a curve, the bullets and numbers of lists, and the end of
// the last paragraph.
MarkedText ToMarkedText(const RtfDocument& document);

// Both in one, for the ticket editor: what is longer than it takes is refused. A refused document
// leaves `text` as it is.
[[nodiscard]] Error LoadMarkedText(std::string_view bytes, MarkedText& text);

}  // namespace varno
