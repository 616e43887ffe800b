#include "editor/key_rules.h"

#include "editor/caret.h"

namespace varno {
namespace {

constexpr int MaxMarkDigits = 3;  // digits in a row that take the colour of a mark

bool IsPadDigit(int keyCode) {
    return keyCode >= KeyPad0 && keyCode <= KeyPad9;
}
bool IsDigit(int keyCode) {
    return (keyCode >= '0' && keyCode <= '9') || IsPadDigit(keyCode);
}

bool MovesOrInserts(int keyCode) {
    return (keyCode >= KeyPageUp && keyCode <= KeyDown) || keyCode == KeyInsert;
}

void Replace(KeyAnswer& answer, std::u16string_view text) {
    answer.insert = text;
    answer.fate = KeyFate::Drop;
}

void AnswerAltKey(int keyCode, KeyAnswer& answer) {
    answer.digitRun = 0;
    switch (keyCode) {
        case 'A':
            answer.command = InsertCommand::Ascii;
            break;
        case 'C':
            answer.command = InsertCommand::Control;
            break;
        case 'P':
            answer.command = InsertCommand::Print;
            break;
        default:
            answer.typing = TypingChange::PlainBlack;
            return;
    }
    answer.fate = KeyFate::Drop;
}

void AnswerDigit(int keyCode, KeyAnswer& answer) {
    ++answer.digitRun;
    if (answer.digitRun > MaxMarkDigits) {
        answer.typing = TypingChange::PlainBlack;
    }
    const int digit = IsPadDigit(keyCode) ? keyCode - KeyPad0 + '0' : keyCode;
    Replace(answer, std::u16string(1, static_cast<char16_t>(digit)));
}

// A real space is a comment's; the ticket's own is a marker.
void AnswerSpace(bool inComment, int shift, KeyAnswer& answer) {
    if (inComment || shift == ShiftCtrl) {
        answer.typing = TypingChange::Comment;
        return;
    }
    answer.typing = TypingChange::PlainBlack;
    Replace(answer, {&SpaceMarker, 1});
}

void AnswerEnter(int shift, KeyAnswer& answer) {
    if (shift == ShiftCtrl) {
        return;
    }
    answer.typing = TypingChange::PlainBlack;
    Replace(answer, LineEndMarker + std::u16string(LineBreak));
}

void AnswerPlainKey(const CaretPlace& caret, int keyCode, int shift, KeyAnswer& answer) {
    const bool inComment = caret.typingColour == CommentColour;
    const bool typesDigit = IsDigit(keyCode) && shift != ShiftShift;
    if (!typesDigit) {
        answer.digitRun = 0;
    }
    if (typesDigit) {
        return AnswerDigit(keyCode, answer);
    }
    if (IsDigit(keyCode) || MovesOrInserts(keyCode)) {
        return;
    }
    switch (keyCode) {
        case KeyDelete:
            if (caret.beforeMarker) {
                answer.fate = KeyFate::PassAndRepeat;
            }
            break;
        case KeyBackspace:
            if (caret.behindLineEnd) {
                answer.fate = KeyFate::PassAndRepeat;
            }
            break;
        case KeySpace:
            AnswerSpace(inComment, shift, answer);
            break;
        case KeyEnter:
            AnswerEnter(shift, answer);
            break;
        default:
            // Naming the comment's format again lets a key replace a selected comment in green.
            answer.typing = inComment ? TypingChange::Comment : TypingChange::PlainBlack;
    }
}

}  // namespace

CaretPlace LookAround(const MarkedEditor& editor) {
    return {.behindMarker = IsLineEndAt(editor, 0),
            .beforeMarker = IsLineEndAt(editor, 1),
            .behindLineEnd = IsLineEndAt(editor, -2),
            .typingColour = editor.SelColor()};
}

KeyAnswer AnswerKey(const CaretPlace& caret, int keyCode, int shift, int digitRun) {
    KeyAnswer answer{.digitRun = digitRun};
    if (caret.behindMarker && keyCode != KeyBackspace) {
        // The key is lost, but it still ends a run of digits and sets the typing format.
        keyCode = KeyNone;
        answer.fate = KeyFate::Drop;
    }
    if (shift == ShiftAlt) {
        AnswerAltKey(keyCode, answer);
    } else if (shift == ShiftNone || shift == ShiftShift || shift == ShiftCtrl) {
        AnswerPlainKey(caret, keyCode, shift, answer);
    }
    return answer;
}

}  // namespace varno
