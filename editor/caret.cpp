#include "editor/caret.h"

#include "codec/insert.h"

namespace varno {
namespace {

bool IsCodedRole(Colour colour) {
    return colour == CommentColour || colour == AsciiCodeColour || colour == PrintCodeColour ||
           colour == ControlCodeColour;
}

}  // namespace

bool IsLineEndAt(const MarkedEditor& editor, int offset) {
    return editor.CharAt(editor.SelStart() + offset) == LineEndMarker;
}

void FollowCaret(MarkedEditor& editor) {
    if (editor.SelLength() > 0) {
        return;
    }
    if (IsLineEndAt(editor, 0)) {
        editor.SetSelStart(editor.SelStart() - 1);
    }
    const Colour colour = editor.SelColor();
    SetTypingFormat(editor, IsCodedRole(colour) ? colour : TextColour);
}

}  // namespace varno
