// The editor tells marks apart by more than their colours: frames and hatching, painted only.
#include <gtest/gtest.h>

#include <QMenu>
#include <QTextBlock>

#include "tests/codec/picture.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

class Marks : public WindowTest {
  protected:
    Marks() {
        edit->setCursorWidth(0);
        edit->setFocus();
    }
    void PressF8() { QTest::keyClick(edit, Qt::Key_F8); }
    QImage Shown() { return edit->viewport()->grab().toImage(); }

    // What is around the characters of the first line: "frame", "round", "dots", "hatch", or
    // nothing.
    std::string Around(int start, int length) {
        const QImage picture = Shown();
        QTextCursor caret(edit->document());
        const auto place = [&](int at) {
            caret.setPosition(at);
            return edit->cursorRect(caret);
        };
        const QRect first = place(start);
        const int end = place(start + length).left();
        const QRgb ink = Ink(start);
        const QRgb white = QColor(Qt::white).rgb();
        const auto pixel = [&](int x) { return picture.pixel(x, first.top()); };
        int inked = 0;
        int coloured = 0;
        const int quarter = (end - first.left()) / 4;  // round corners are outside of the middle
        for (int x = first.left() + quarter; x < end - quarter; ++x) {
            inked += pixel(x) == ink ? 1 : 0;
            coloured += pixel(x) != white ? 1 : 0;
        }
        if (inked == 0) {
            return coloured == 0 ? "" : "hatch";
        }
        return inked < end - first.left() - 2 * quarter ? "dots"
               : pixel(first.left()) != white           ? "frame"
                                                        : "round";
    }
    QRgb Ink(int at) const {
        QTextCursor character(edit->document());
        character.setPosition(at + 1);
        return character.charFormat().foreground().color().rgb();
    }
};

TEST_F(Marks, AreFramedByWhatTheyAre) {
    const struct {
        const char* picture;
        int start, length;
        const char* around;
    } table[] = {
        {"ab{r}C005{k}c", 2, 4, "frame"},       {"{r}C005C017{k}", 0, 4, "frame"},
        {"{r}C005C017{k}", 4, 4, "frame"},      {"{r}C005{rB}C017{k}", 4, 4, "frame"},
        {"{b}P012{k}", 0, 4, "round"},          {"{m}A027{k}", 0, 4, "dots"},
        {"{m}A0271{k}", 4, 1, "hatch"},     // a fourth digit is none of the code
        {"{r}C9999{k}", 0, 5, "hatch"},     // no ticket takes it
        {"{r}x{b}C005{k}", 1, 4, "hatch"},  // no print code
        {"{g}LINE FEED{k}", 0, 9, "hatch"},     {"{x}olive{k}", 0, 5, "hatch"},
        {"C005 \u00F7 P012\u00AC\n", 0, 9, ""},
    };
    for (const auto& row : table) {
        box.SetContent(FromPicture(row.picture));
        const QImage plain = Shown();
        PressF8();
        EXPECT_EQ(Around(row.start, row.length), row.around) << row.picture;
        PressF8();
        EXPECT_EQ(Shown(), plain) << row.picture;
    }
    // Two codes have two frames, one of as many characters has one.
    const auto line = [&](const char* picture) {
        box.SetContent(FromPicture(picture));
        PressF8();
        QTextCursor caret(edit->document());
        caret.setPosition(4);
        const QRect joint = edit->cursorRect(caret);
        const QColor found = Shown().pixelColor(joint.left(), joint.top() + 2);
        PressF8();
        return found == QColor(Qt::red);
    };
    EXPECT_TRUE(line("{r}C005C017"));
    EXPECT_FALSE(line("{r}C0050017"));
}

TEST_F(Marks, StandOnTheSelectionToo) {
    box.SetContent(FromPicture("{r}C005{g} LINE FEED{k}\n"));
    PressF8();
    for (const bool backwards : {false, true}) {
        QTextCursor selection = edit->textCursor();
        selection.setPosition(backwards ? 8 : 2);
        selection.setPosition(backwards ? 2 : 8, QTextCursor::KeepAnchor);
        edit->setTextCursor(selection);
        const QImage picture = Shown();
        QTextCursor caret(edit->document());
        const auto place = [&](int at) {
            caret.setPosition(at);
            return edit->cursorRect(caret).topLeft();
        };
        EXPECT_EQ(picture.pixelColor(place(1)), QColor(Qt::red));
        EXPECT_EQ(picture.pixelColor(place(3)), edit->palette().color(QPalette::HighlightedText));
    }
    // Nothing of the frame's own colour shines through: what is selected in grey is grey.
    QPalette greys = edit->palette();
    greys.setColor(QPalette::Highlight, Qt::black);
    greys.setColor(QPalette::HighlightedText, Qt::white);
    edit->setPalette(greys);
    box.SetContent(FromPicture("{b}P012{k}\n"));
    QTextCursor code(edit->document());
    const QRect front = edit->cursorRect(code);
    code.setPosition(4, QTextCursor::KeepAnchor);
    edit->setTextCursor(code);
    const QImage selected = Shown().copy(
        QRect(front.topLeft(), QPoint(edit->cursorRect(code).left() - 1, front.bottom())));
    EXPECT_TRUE(selected.allGray());
}

TEST_F(Marks, ChangeNothingAndAreRemembered) {
    const MarkedText ticket = FromPicture("Net{r}C005{gB} LINE FEED{k}\n\u00F7kg\u00AC\n");
    box.SetContent(ticket);
    box.SetSelStart(5);
    int events = 0;
    QObject::connect(edit, &QTextEdit::textChanged, [&] { ++events; });
    QObject::connect(edit, &QTextEdit::cursorPositionChanged, [&] { ++events; });
    const int revision = edit->document()->revision();
    const int steps = edit->document()->availableUndoSteps();
    PressF8();
    Shown();
    EXPECT_EQ(box.Content(), ticket);
    EXPECT_EQ(edit->document()->revision(), revision);
    EXPECT_EQ(edit->document()->availableUndoSteps(), steps);
    EXPECT_EQ(events, 0);
    EXPECT_EQ(box.SelStart(), 5);
    EXPECT_TRUE(window.Get<MenuItem>("ShowMarks").Checked());

    RealWindow next(folder);  // while the first is still open
    next.Start();
    EXPECT_TRUE(next.Get<RichTextBox>("RichText").ShowsMarks());
    EXPECT_TRUE(next.Get<MenuItem>("ShowMarks").Checked());
    QTest::keyClick(next.Widget<QTextEdit>("RichText"), Qt::Key_F8);
    EXPECT_FALSE(next.Get<RichTextBox>("RichText").ShowsMarks());
    script.Expect(SaveTicketQuestion, Answer::No);
    window.form.Form_Unload();
    RealWindow last(folder);
    last.Start();
    EXPECT_FALSE(last.Get<RichTextBox>("RichText").ShowsMarks());
}

}  // namespace
}  // namespace varno
