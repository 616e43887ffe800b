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
    using Action = void (EditorModel::*)();

    void Apply(const KeyStroke& stroke) {
        static const std::map<int, Action> actions{
            {KeyDelete, &EditorModel::Delete}, {KeyBackspace, &EditorModel::Backspace},
            {KeyLeft, &EditorModel::Left},     {KeyRight, &EditorModel::Right},
            {KeyHome, &EditorModel::Home},     {KeyEnd, &EditorModel::End},
            {KeyUp, &EditorModel::Up},         {KeyDown, &EditorModel::Down}};
        static const std::map<int, Action> ctrlActions{
            {KeyEnter, &EditorModel::BreakLine}, {KeySpace, &EditorModel::Blank},
            {'C', &EditorModel::Copy},           {'V', &EditorModel::Paste},
            {'Z', &EditorModel::Undo},           {'Y', &EditorModel::Redo}};
        const auto& known = stroke.shift == ShiftCtrl ? ctrlActions : actions;
        if (const auto found = known.find(stroke.code); found != known.end()) {
            (this->*found->second)();
        } else if (stroke.shift <= ShiftShift) {
            box_.SetSelText(stroke.text);
        }
    }

    char16_t At(int position) const { return box_.CharAt(position); }
    int Start() const { return box_.SelStart(); }
    int EndOfText() const { return static_cast<int>(box_.Marked().Length()); }
    // Characters that one step over the position takes: a line break is one unit.
    int UnitBefore() const { return std::min(Start(), At(Start()) == u'\n' ? 2 : 1); }
    int UnitBehind() const { return Start() == EndOfText() ? 0 : At(Start() + 1) == u'\r' ? 2 : 1; }
    int LineStart(int from) const {
        while (from > 0 && At(from) != u'\n') --from;
        return from;
    }
    int LineEnd(int from) const {
        while (from < EndOfText() && At(from + 1) != u'\r') ++from;
        return from;
    }

    void Erase(int start, int length) {
        MarkedText text = box_.Marked();
        text.Erase(static_cast<std::size_t>(start), static_cast<std::size_t>(length));
        if (length > 0) box_.SetContent(text);
        box_.SetSelStart(start);
    }
    bool EraseSelection() {
        const bool selected = box_.SelLength() > 0;
        if (selected) Erase(Start(), box_.SelLength());
        return selected;
    }
    void Delete() {
        if (!EraseSelection()) Erase(Start(), UnitBehind());
    }
    void Backspace() {
        if (!EraseSelection()) Erase(Start() - UnitBefore(), UnitBefore());
    }
    void Left() { box_.SetSelStart(Start() - UnitBefore()); }
    void Right() {
        const int step = box_.SelLength() > 0 ? box_.SelLength() : UnitBehind();
        box_.SetSelStart(Start() + step);
    }
    void Home() { box_.SetSelStart(LineStart(Start())); }
    void End() { box_.SetSelStart(LineEnd(Start())); }
    void Up() { MoveToLine(LineStart(Start()) - static_cast<int>(LineBreak.size())); }
    void Down() { MoveToLine(LineEnd(Start()) + static_cast<int>(LineBreak.size())); }
    // To the same column of the line that `position` is in.
    void MoveToLine(int position) {
        const int column = Start() - LineStart(Start());
        box_.SetSelStart(std::min(LineStart(position) + column, LineEnd(position)));
    }
    void BreakLine() { box_.SetSelText(LineBreak); }
    void Blank() { box_.SetSelText(u" "); }
    void Copy() {
        copied_ = {};
        for (int i = Start(); i < Start() + box_.SelLength(); ++i) {
            const auto at = static_cast<std::size_t>(i);
            copied_.Append({&box_.Marked().Text()[at], 1}, box_.Marked().FormatAt(at));
        }
    }
    void Paste() {
        MarkedText text = box_.Marked();
        const int start = Start();
        for (std::size_t i = 0; i < copied_.Length(); ++i) {
            text.Insert(static_cast<std::size_t>(start) + i, {&copied_.Text()[i], 1},
                        copied_.FormatAt(i));
        }
        box_.SetContent(text);
        box_.SetSelStart(start + static_cast<int>(copied_.Length()));
    }
    void Undo() {
        undone_ = box_.Marked();
        box_.Undo();
    }
    void Redo() { box_.SetContent(undone_); }

    FakeRichTextBox box_;
    FakePlatform platform_;
    bool ticketChanged_ = false;
    InsertCommands commands_{box_, platform_, {}};
    TicketEditor editor_{box_, ticketChanged_, commands_};
    MarkedText copied_;
    MarkedText undone_;
};

TEST(KeyRules, DoWhatThePicturesShow) {
    for (const KeyPicture& row : KeyPictures) {
        EditorModel model(FromCaretPicture(row.before));
        for (const KeyStroke& stroke : ParseKeys(row.keys)) model.Press(stroke);
        const CaretPicture expected = FromCaretPicture(row.after);
        CaretPicture shown = model.Shown();
        if (expected.start < 0) shown.start = -1;
        EXPECT_EQ(ToPicture(shown), ToPicture(expected))
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
}

}  // namespace
}  // namespace varno
