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
class EditorModel {
  public:
    explicit EditorModel(const CaretPicture& picture) {
        box_.SetContent(picture.text);
        box_.Select(picture.start, picture.length);
        if (picture.length == 0) {
            box_.SetTypingFormat(picture.typing);
        }
    }

    void Press(const KeyStroke& stroke) {
        if (stroke.code == KeyNone) {
            box_.SetSelStart(box_.SelStart());
            return editor_.RichText_Click();
        }
        const KeyFate fate = editor_.RichText_KeyDown(stroke.code, stroke.shift);
        if (fate == KeyFate::Pass) {
            Apply(stroke);
        } else if (fate == KeyFate::PassTwice) {
            box_.AsOneStep([&] {
                Apply(stroke);
                Apply(stroke);
            });
        }
        editor_.RichText_KeyUp();
    }

    CaretPicture Shown() const {
        return {box_.Marked(), box_.SelStart(), box_.SelLength(), box_.TypingFormat()};
    }

  private:
    void Apply(const KeyStroke& stroke) {
        const bool selected = box_.SelLength() > 0;
        const int start = box_.SelStart();
        // A line break is one unit.
        const int before = std::min(start, box_.CharAt(start) == u'\n' ? 2 : 1);
        const int behind = box_.CharAt(start + 1) == u'\r' ? 2 : 1;
        if (stroke.code == KeyDelete || stroke.code == KeyBackspace) {
            const bool back = !selected && stroke.code == KeyBackspace;
            Erase(back ? start - before : start, selected ? box_.SelLength()
                                                 : back   ? before
                                                          : behind);
        } else if (stroke.code == KeyLeft) {
            box_.SetSelStart(start - before);
        } else if (stroke.code == KeyRight) {
            box_.SetSelStart(start + behind);
        } else if (stroke.code == KeyEnter) {
            box_.SetSelText(LineBreak);
        } else if (stroke.code == KeySpace || stroke.shift <= ShiftShift) {
            box_.SetSelText(stroke.text);
        }
    }

    void Erase(int start, int length) {
        MarkedText text = box_.Marked();
        const auto from = static_cast<std::size_t>(start);
        text.Erase(from, std::min(text.Length() - from, static_cast<std::size_t>(length)));
        box_.SetContent(text);
        box_.SetSelStart(start);
    }

    FakeRichTextBox box_;
    FakePlatform platform_;
    bool ticketChanged_ = false;
    InsertCommands commands_{box_, platform_, {}};
    TicketEditor editor_{box_, ticketChanged_, commands_};
};

TEST(KeyRules, DoWhatThePicturesShow) {
    for (const KeyPicture& row : KeyPictures) {
        EditorModel model(FromCaretPicture(row.before));
        for (const KeyStroke& stroke : ParseKeys(row.keys)) model.Press(stroke);
        const CaretPicture expected = FromCaretPicture(row.after);
        EXPECT_EQ(ToPicture(model.Shown()), ToPicture(expected))
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
