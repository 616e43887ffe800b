// Where the caret may stand, and the colour that typing takes from there. A line end is the marker
// and the line break behind it; the caret never rests between the two.
#pragma once

#include "codec/marked_editor.h"

namespace varno {

// Whether the character at SelStart + offset is the line-end marker; offset 0 is the character
// before the caret, 1 the one behind it.
bool IsLineEndAt(const MarkedEditor& editor, int offset);

// Moves the caret in front of a marker that it stands right behind, and makes the typing format
// the role that the caret stands in, plain. Leaves a selection alone.
void FollowCaret(MarkedEditor& editor);

}  // namespace varno
