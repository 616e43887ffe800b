// The terminal's text as assistive technology reads it. The control's own interface would read the
// places where a long line goes on in a block of its own as line breaks.
#pragma once

namespace varno {

class LineView;

// The view's document holds line text (see line_text.h); a line break reads as one character.
// Offsets are characters of that text.
void MakeLineViewAccessible(LineView* view);

}  // namespace varno
