// Text from other programs, made into text that a ticket prints as it looks.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "codec/marked_text.h"

namespace varno {

// The compatibility decomposition of a character (Unicode's NFKD), which the platform knows; the
// character itself where it has none.
using Decompose = std::function<std::u16string(char32_t)>;

// Text as a ticket prints it, character by character; the text is composed (NFC). What Windows-1252
// holds stays. A blank or a tab becomes the space marker, any other character a form that the set
// holds (a ligature its letters, a letter with a foreign accent the bare letter, a minus a hyphen),
// or else "?". What shows nothing, such as control characters, is left out.
std::u16string PrintableForm(std::u16string_view text, const Decompose& decompose);

// The same for the black characters of marked text; the others stay. A line of black text gets a
// line-end marker in front of its line break if it has none, and a marker its line break. Lines of
// codes and comments keep their bare line breaks.
MarkedText Printable(const MarkedText& text, const Decompose& decompose);

}  // namespace varno
