// The few operations of a rich-text editor that tickets need. The window's editor implements them
// on the screen, MemoryEditor in memory; the rules do not know which one they write to.
#pragma once

#include <string_view>

#include "codec/marked_text.h"

namespace varno {

// Positions count UTF-16 units; a line break counts as two (CR LF).
class MarkedEditor {
  public:
    virtual ~MarkedEditor() = default;

    virtual MarkedText Content() const = 0;
    // Replaces the whole text, as one step that can be undone. The caret goes to the start.
    virtual void SetContent(const MarkedText& content) = 0;
    virtual bool HasText() const = 0;

    // The character at a 1-based position, or 0 outside the text.
    virtual char16_t CharAt(int position) const = 0;

    // The number of characters before the caret, or before the selection if there is one.
    // Setting it clears the selection; past the end means the end.
    virtual int SelStart() const = 0;
    virtual void SetSelStart(int position) = 0;
    virtual int SelLength() const = 0;

    // Replaces the selection, or inserts at the caret, in the typing format; the caret ends behind
    // the text. An empty text inserts nothing and leaves a selection as it is.
    virtual void SetSelText(std::u16string_view text) = 0;

    // The typing format: what the next character typed or inserted takes. It is the format of the
    // character before the caret, or of a selection's last one, unless it was set since the text,
    // the caret or the selection last changed. Setting it leaves a selection with its own colours.
    virtual CharFormat TypingFormat() const = 0;
    virtual void SetTypingFormat(const CharFormat& format) = 0;

    // The colour of the selection's last character, or of the typing format without a selection.
    virtual Colour SelColor() const = 0;
};

}  // namespace varno
