// What a key does in the ticket editor. The rules see what stands around the caret and say what
// is to happen; the control and its caller do it. No rule looks further than three characters, so
// a key costs the same in a long ticket as in a short one.
#pragma once

#include <string>

#include "codec/marked_editor.h"
#include "platform/rich_text.h"

namespace varno {

// What a key rule needs to know of the text. With a selection, the caret is its front.
struct CaretPlace {
    bool behindMarker = false;   // between a line-end marker and its line break
    bool beforeMarker = false;   // right in front of a line-end marker
    bool behindLineEnd = false;  // at the start of the line that follows a line-end marker
    Colour typingColour = TextColour;
};

CaretPlace LookAround(const MarkedEditor& editor);

enum class TypingChange { None, PlainBlack, Comment };
enum class InsertCommand { None, Ascii, Control, Print };

// Carried out in this order: the typing format, the insertion, the command, the key.
struct KeyAnswer {
    TypingChange typing = TypingChange::None;
    std::u16string insert = {};  // in the typing format
    InsertCommand command = InsertCommand::None;
    KeyFate fate = KeyFate::Pass;
    int digitRun = 0;
};

// `digitRun` is the number of digit keys typed in a row before this one.
KeyAnswer AnswerKey(const CaretPlace& caret, int keyCode, int shift, int digitRun);

}  // namespace varno
