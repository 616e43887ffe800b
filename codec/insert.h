// The insert procedures: the one way in which the program writes into the editor. Each inserts at
// the caret, replacing a selection, and leaves the caret behind what it inserted.
#pragma once

#include <string_view>

#include "codec/marked_editor.h"

namespace varno {

// `styles` may hold "B" bold, "I" italic, "U" underline, "S" strike-through; each is off otherwise.
void SetTypingFormat(MarkedEditor& editor, Colour colour, std::string_view styles = "");

// In the current typing format.
void InsertText(MarkedEditor& editor, std::u16string_view text);

// With an empty text these two only set the typing format.
void InsertPlain(MarkedEditor& editor, std::u16string_view text = u"");
void InsertComment(MarkedEditor& editor, std::u16string_view text = u"");

// The mark's letter, then the digits as given.
void InsertAsciiMark(MarkedEditor& editor, std::u16string_view number);
void InsertControlMark(MarkedEditor& editor, std::u16string_view code);
void InsertPrintMark(MarkedEditor& editor, std::u16string_view code);

}  // namespace varno
