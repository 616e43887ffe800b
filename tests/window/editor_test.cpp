// The ticket editor on the real control, with real key and mouse events.
#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <QLineEdit>
#include <QTimer>

#include "editor/ticket_editor.h"
#include "platform/qt/marked_cursor.h"
#include "platform/qt/rich_text_box.h"
#include "tests/editor/key_pictures.h"
#include "tests/fakes/caret_picture.h"
#include "tests/fakes/fake_platform.h"
#include "tests/window/main_window.h"
#include "tests/window/qt_keys.h"

namespace varno {
namespace {

class RealEditor {
  public:
    RealEditor() {
        box_.OnChange = [this] { editor_.RichText_Change(); };
        box_.OnClick = [this] { editor_.RichText_Click(); };
        box_.OnKeyDown = [this](int code, int shift) {
            return editor_.RichText_KeyDown(code, shift);
        };
        box_.OnKeyUp = [this] { editor_.RichText_KeyUp(); };
        Edit()->resize(400, 300);
        Edit()->show();
    }
    ~RealEditor() { delete Edit(); }

    void Show(const CaretPicture& picture) {
        box_.SetContent(picture.text);
        const QTextDocument& document = *Edit()->document();
        QTextCursor cursor = Edit()->textCursor();
        cursor.setPosition(ToQtPosition(document, picture.start));
        cursor.setPosition(ToQtPosition(document, picture.start + picture.length),
                           QTextCursor::KeepAnchor);
        Edit()->setTextCursor(cursor);
        if (picture.length == 0) box_.SetTypingFormat(picture.typing);
    }
    void Send(const KeyStroke& stroke) {
        stroke.code == KeyNone ? ClickCaret(Edit()) : Press(Edit(), stroke);
    }
    CaretPicture Shown() const {
        return {box_.Content(), box_.SelStart(), box_.SelLength(), box_.TypingFormat()};
    }
    TicketEdit* Edit() const { return box_.Get(); }

    FakePlatform platform;
    QtRichTextBox box_{{.name = "RichText", .place = {}, .font = FontFace::FixedWidth}, nullptr};
    InsertCommands commands{box_, platform, {}};

  private:
    bool ticketChanged_ = false;
    TicketEditor editor_{box_, ticketChanged_, commands};
};

void Check(const KeyPicture& row) {
    RealEditor editor;
    editor.Show(FromCaretPicture(row.before));
    for (const KeyStroke& stroke : ParseKeys(row.keys)) editor.Send(stroke);
    const CaretPicture expected = FromCaretPicture(row.after);
    CaretPicture shown = editor.Shown();
    if (expected.start < 0) shown.start = -1;
    EXPECT_EQ(ToPicture(shown), ToPicture(expected))
        << "before: " << row.before << "\nkeys:   " << row.keys;
}

TEST(Editor, DoesWhatThePicturesShow) {
    for (const KeyPicture& row : KeyPictures) Check(row);
}

// What the control does by itself, beside the rules.
TEST(Editor, KeepsToTheRulesWithItsOwnKeys) {
    const KeyPicture rows[] = {
        {"abc|¬\ndef", "<S-Del>", "abc|¬\ndef"},
        {"abc|¬\ndef", "<C-Del>", "abc|def"},
        {"abc¬\n|def", "<C-BS>", "abc|def"},
        {"a[b{r}C005]{k}d", "<S-Del>", "a|d"},
        {"a[b{r}C005{g} X{k}\n]d", "<C-C><Right><C-V>", "ab{r}C005{g} X{k}\nb{r}C005{g} X{k}\n|d"},
        {"a[b]c", "<C-X><C-Z>", "abc"},
        {"abc¬\nd|ef", "<Up><End>", "abc|¬\ndef"},
        {"a|bc¬\ndef", "<Down>", "abc¬\nd|ef"},
        {"abc¬\nde|f", "<Home>", "abc¬\n|def"},
        {"a[{r}C005]{k}b", "<C-C><Right><C-V>", "a{r}C005C005|{k}b"},
        // A line end goes in one step of undo, and comes in one.
        {"abc|¬\ndef", "<Del><C-Z>", "abc¬\ndef"},
        {"abc¬\n|def", "<BS><C-Z>", "abc¬\ndef"},
        {"abc|¬\ndef", "<Del><C-Z><C-Y>", "abcdef"},
        {"ab|cd", "<Enter><C-Z>", "abcd"},
        {"a[bc]d", "<Enter><C-Z>", "abcd"},
        // Typed text is one step of undo, and none with what was there before.
        {"ab|", "cd<C-Z>", "ab"},
        {"ab|", "cd<Left>e<C-Z>", "abcd"},
        {"[ab]", "<C-C><Right><C-V>cd<C-Z>", "abab"},
        {"{r}C|", "12<C-Z>", "{r}C"},
        {"ab|", "c<Enter>d<C-Z>", "abc¬\n"},
        {"ab|", "c<Enter>d<C-Z><C-Z><C-Z>", "ab"},
        {"ab|", "c<Enter>d<C-Z><C-Z><C-Z><C-Y><C-Y><C-Y>", "abc¬\nd"},
    };
    for (const KeyPicture& row : rows) Check(row);
}

class RealPickers : public testing::Test {
  protected:
    void SetUp() override { window.Start(); }

    // Presses the keys in the editor; `script` operates the picker that they open.
    void Pick(std::string_view keys, const std::function<void(QWidget&)>& script) {
        bool shown = false;
        QTimer timer;
        timer.setSingleShot(true);
        timer.callOnTimeout([&] {
            shown = true;
            QWidget* picker = QApplication::activeModalWidget();
            ASSERT_NE(picker, nullptr);
            QApplication::setActiveWindow(picker);
            script(*picker);
            if (picker->isVisible()) {
                ADD_FAILURE() << "still open after " << keys;
                picker->close();
            }
        });
        timer.start(0);
        PressAll(keys);
        EXPECT_TRUE(shown) << keys;
    }
    void PressAll(std::string_view keys) {
        for (const KeyStroke& stroke : ParseKeys(keys)) Press(edit, stroke);
    }
    // Keys as an operator presses them, to whatever has the focus.
    static void PressInPicker(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys) QTest::keyClick(QApplication::focusWidget(), key);
    }
    std::string Shown() {
        return ToPicture(CaretPicture{box.Content(), box.SelStart(), 0, box.TypingFormat()});
    }

    TestFolder folder;
    MainWindow window{folder};
    QTextEdit* edit = window.Widget<QTextEdit>("RichText");
    RichTextBox& box = window.Get<RichTextBox>("RichText");
};

TEST_F(RealPickers, InsertByKeyboardInOneStep) {
    using Keys = std::initializer_list<Qt::Key>;
    struct Row {
        const char* open;
        Keys keys;
        const char* after;  // and an "x" typed behind it
    };
    const Row rows[] = {
        {"<A-C>",
         {Qt::Key_0, Qt::Key_0, Qt::Key_5, Qt::Key_Return},
         "\n{r}C005{g} LINE FEED{k}\nx|"},
        {"<A-P>",
         {Qt::Key_0, Qt::Key_1, Qt::Key_2, Qt::Key_1, Qt::Key_Enter},
         "\n{b}P012{g} NET WEIGHT{k}\nx|"},
        {"<A-A>", {Qt::Key_7, Qt::Key_Return}, "{m}A7{g} {k}x|"},
        {"<A-A>", {Qt::Key_3, Qt::Key_2, Qt::Key_Return}, "÷x|"},
        {"<A-C>", {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}, "\n{r}C007{g} BELL{k}\nx|"},
        {"<A-A>",
         {Qt::Key_Backtab, Qt::Key_Backtab, Qt::Key_Down, Qt::Key_Down, Qt::Key_Return},
         "{m}A1{g} {k}x|"},
        {"<A-A>", {Qt::Key_7, Qt::Key_Escape}, "x|"},
        {"<A-C>", {Qt::Key_Escape}, "x|"},
        {"<A-A>", {Qt::Key_7, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}, "{m}A7{g} {k}x|"},
        {"<A-A>", {Qt::Key_7, Qt::Key_Backtab, Qt::Key_Return}, "x|"},  // on Cancel
    };
    for (const Row& row : rows) {
        edit->setFocus();
        PressAll("<C-A><Del>ab");
        Pick(row.open, [&](QWidget&) { PressInPicker(row.keys); });
        PressAll("x");
        EXPECT_EQ(Shown(), std::string("ab") + row.after) << row.open;
        if (row.after[0] == 'x') continue;  // cancelled
        PressAll("<C-Z><C-Z>");
        EXPECT_EQ(ToPicture(box.Content()), "ab") << row.open << row.after;
    }
}

TEST_F(RealPickers, AreOperatedByMouse) {
    const auto item = [](QWidget& picker, const char* list, int row) {
        auto* widget = picker.findChild<QListWidget*>(list);
        return std::pair(widget->viewport(), widget->visualItemRect(widget->item(row)).center());
    };
    Pick("<A-C>", [&](QWidget& picker) {
        const auto [list, place] = item(picker, "UnsortedCommentComboBox.List", 2);
        QTest::mouseClick(list, Qt::LeftButton, {}, place);
        EXPECT_EQ(picker.findChild<QLineEdit*>("CodeComboBox.Edit")->text(), "003");
        QTest::mouseClick(picker.findChild<QWidget*>("OkButton"), Qt::LeftButton);
    });
    Pick("<A-C>", [&](QWidget& picker) {
        EXPECT_EQ(picker.findChild<QLineEdit*>("CodeComboBox.Edit")->text(), "003");
        const auto [list, place] = item(picker, "CodeComboBox.List", 0);
        QTest::mouseClick(list, Qt::LeftButton, {}, place);
        QTest::mouseDClick(list, Qt::LeftButton, {}, place);
    });
    Pick("<A-A>", [&](QWidget& picker) {
        const auto [list, place] = item(picker, "List1", 7);
        QTest::mouseClick(list, Qt::LeftButton, {}, place);
        QTest::mouseDClick(list, Qt::LeftButton, {}, place);
    });
    Pick("<A-C>", [](QWidget& picker) { picker.close(); });
    Pick("<A-C>", [](QWidget& picker) {
        EXPECT_EQ(picker.findChild<QLineEdit*>("CodeComboBox.Edit")->text(), "");
        QTest::mouseClick(picker.findChild<QWidget*>("CancelButton"), Qt::LeftButton);
    });
    EXPECT_EQ(Shown(),
              "{r}C003{g} SELECT PRINTER PORT 2{k}\n{r}C001{g} RESET PRINTER{k}\n{m}A7{g} {k}|");
}

// Typing that no key event brings: an input method's, or a dead key's.
TEST_F(RealPickers, TextOfAnInputMethodIsTyped) {
    const auto compose = [&](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(edit, &event);
    };
    Pick("<A-C>", [](QWidget&) {
        PressInPicker({Qt::Key_0, Qt::Key_0, Qt::Key_5, Qt::Key_Return});
    });
    PressAll("<Up><End><Left><Left><Left><Left><Left><Left>");
    compose("ê");
    compose(" ");
    PressAll("<Home><Right>");
    compose("é");
    compose(" ");
    EXPECT_EQ(Shown(), "{r}C{k}é÷|{r}005{g} LINê E FEED{k}\n");
}

}  // namespace
}  // namespace varno
