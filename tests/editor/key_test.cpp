// The picture table over the rules, on an editor in memory that obeys the answers to its keys.
#include <gtest/gtest.h>

#include "editor/key_rules.h"
#include "editor/ticket_editor.h"
#include "tests/editor/key_pictures.h"
#include "tests/fakes/caret_picture.h"
#include "tests/fakes/fake_platform.h"
#include "tests/fakes/fake_rich_text.h"
#include "tests/fakes/key_strokes.h"

namespace varno {
namespace {

// Does with a key what a text control does, and asks the ticket editor first.
struct EditorModel {
    FakeRichTextBox box;
    FakePlatform platform;
    bool ticketChanged = false;
    InsertCommands commands{box, platform, {}};
    TicketEditor editor{box, ticketChanged, commands, [] {}, [](CommandEvent) {}};

    void Press(const KeyStroke& stroke) {
        if (stroke.code == KeyNone) {
            box.SetSelStart(box.SelStart());
            return editor.RichText_Click();
        }
        KeyFate fate = editor.RichText_KeyDown(stroke.code, stroke.shift);
        if (fate != KeyFate::Drop) Apply(stroke);
        while (fate == KeyFate::PassAndRepeat) {
            fate = editor.RichText_KeyDown(stroke.code, ShiftNone);
            if (fate != KeyFate::Drop) Apply(stroke);
        }
        editor.RichText_KeyUp();
    }
    void Apply(const KeyStroke& stroke) {
        const int start = box.SelStart();
        // A line break is one unit.
        const int before = std::min(start, box.CharAt(start) == u'\n' ? 2 : 1);
        const int behind = box.CharAt(start + 1) == u'\r' ? 2 : 1;
        const bool types = stroke.code == KeySpace || stroke.shift <= ShiftShift;
        switch (stroke.code) {
            case KeyDelete:
                return Erase(start, behind);
            case KeyBackspace:
                return Erase(start - before, before);
            case KeyLeft:
                return box.SetSelStart(start - before);
            case KeyRight:
                return box.SetSelStart(start + behind);
            case KeyEnter:
                return box.SetSelText(LineBreak);
            default:
                if (types) box.SetSelText(stroke.text);
        }
    }
    void Erase(int start, int length) {
        if (box.SelLength() == 0) box.Select(start, length);
        MarkedText text = box.Marked();
        text.Erase(static_cast<std::size_t>(box.SelStart()),
                   static_cast<std::size_t>(box.SelLength()));
        start = box.SelStart();
        box.SetContent(text);
        box.SetSelStart(start);
    }
};

TEST(KeyRules, DoWhatThePicturesShow) {
    for (const KeyPicture& row : KeyPictures) {
        EditorModel model;
        FakeRichTextBox& box = model.box;
        const CaretPicture before = FromCaretPicture(row.before);
        box.SetContent(before.text);
        box.Select(before.start, before.length);
        if (before.length == 0) box.SetTypingFormat(before.typing);
        for (const KeyStroke& stroke : ParseKeys(row.keys)) model.Press(stroke);
        const CaretPicture after{box.Marked(), box.SelStart(), box.SelLength(), box.TypingFormat()};
        EXPECT_EQ(ToPicture(after), ToPicture(FromCaretPicture(row.after)))
            << "before: " << row.before << "\nkeys:   " << row.keys;
    }
}

// A digit key with Shift types what it types, and ends the run of digits.
TEST(KeyRules, LeaveADigitKeyWithShiftAlone) {
    for (const int digit : std::initializer_list<int>{'0', '9', KeyPad0, KeyPad9}) {
        const KeyAnswer answer = AnswerKey({.typingColour = AsciiCodeColour}, digit, ShiftShift, 2);
        EXPECT_EQ(answer.fate, KeyFate::Pass);
        EXPECT_EQ(answer.typing, TypingChange::None);
        EXPECT_EQ(answer.insert, u"");
        EXPECT_EQ(answer.digitRun, 0);
    }
    EXPECT_EQ(AnswerKey({}, 'A', ShiftAlt, 2).digitRun, 0) << "and so does a command";
}

}  // namespace
}  // namespace varno
