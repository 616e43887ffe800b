// The ticket editor on the real control, with real key and mouse events.
#include <gtest/gtest.h>

#include <QInputMethodEvent>

#include "editor/ticket_editor.h"
#include "platform/qt/marked_cursor.h"
#include "platform/qt/rich_text_box.h"
#include "tests/editor/key_pictures.h"
#include "tests/fakes/caret_picture.h"
#include "tests/fakes/fake_platform.h"
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

    // `backwards`: the caret stands at the front of the selection.
    void Show(const CaretPicture& picture, bool backwards = false) {
        box_.SetContent(picture.text);
        const QTextDocument& document = *Edit()->document();
        const int front = ToQtPosition(document, picture.start);
        const int end = ToQtPosition(document, picture.start + picture.length);
        QTextCursor cursor = Edit()->textCursor();
        cursor.setPosition(backwards ? end : front);
        cursor.setPosition(backwards ? front : end, QTextCursor::KeepAnchor);
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
    TicketEditor editor_{box_, ticketChanged_, commands, [] {}, [](CommandEvent) {}};
};

void Check(const KeyPicture& row, bool backwards) {
    RealEditor editor;
    editor.Show(FromCaretPicture(row.before), backwards);
    for (const KeyStroke& stroke : ParseKeys(row.keys)) editor.Send(stroke);
    const CaretPicture expected = FromCaretPicture(row.after);
    CaretPicture shown = editor.Shown();
    if (expected.start < 0) shown.start = -1;
    EXPECT_EQ(ToPicture(shown), ToPicture(expected))
        << "before: " << row.before << (backwards ? ", backwards" : "") << "\nkeys:   " << row.keys;
}

// Every selection is made in both directions.
void Check(const KeyPicture& row) {
    Check(row, false);
    if (FromCaretPicture(row.before).length > 0) Check(row, true);
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
        {"a[b¬]\ncd", "<C-Del>", "a|\ncd"},
        {"abc¬\n[d]ef", "<C-BS><C-Z>", "abc¬\ndef"},
        // Words end at markers, line ends and colours.
        {"|Net÷÷5¬\n{r}C005{g} LINE FEED{k}\nx", "<C-Right>",
         "Net÷÷|5¬\n{r}C005{g} LINE FEED{k}\nx"},
        {"|ab÷cd", "<C-Del>", "|cd"},
        {"ab|¬\ncd", "<C-Right>", "ab¬\n|cd"},
        {"ab÷c|d¬\n", "<C-S-Left><C-S-Left><Del>", "|d¬\n"},
        {"x{r}C005{g} NET|{k}y", "<C-BS><C-BS>", "x{r}C005|{k}y"},
        {"a[b{r}C005]{k}d", "<S-Del>", "a|d"},
        {"a[b{r}C005{g} X{k}\n]d", "<C-C><Right><C-V>", "ab{r}C005{g} X{k}\nb{r}C005{g} X{k}\n|d"},
        {"a[b]c", "<C-X><C-Z>", "abc"},
        {"ab[{g}net]", "<C-X>Total", "abTotal|"},
        {"ab[{m}A7]", "<S-Del>12", "ab12|"},
        {"x[{r}C0]", "<Del><C-Z>7", "x{r}C07"},
        {"abc¬\nd|ef", "<Up><End>", "abc|¬\ndef"},
        {"a|bc¬\ndef", "<Down>", "abc¬\nd|ef"},
        {"abc¬\nde|f", "<Home>", "abc¬\n|def"},
        {"a[{r}C005]{k}b", "<C-C><Right><C-V>", "a{r}C005C005|{k}b"},
        // Typed as it will be printed; a comment takes any character.
        {"a|", "łж€", "al?€|"},
        {"{g}a|", "łж€", "{g}ałж€|"},
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

TEST(Editor, SelectsAWordByDoubleClick) {
    const std::pair<const char*, const char*> rows[] = {
        {"Ne|t÷5", "[Net]÷5"},    {"Net|÷5", "[Net]÷5"}, {"x{r}C0|05{g} NET", "x{r}[C005]{g} NET"},
        {"5÷|÷kg", "5[÷÷]kg"},    {"5.|¬\n", "5[.]¬\n"}, {"ab|{r}C005", "ab{r}[C005]"},
        {"a¬\n|¬\n", "a¬\n|¬\n"}, {"a.|", "a[.]"},       {"|", "|"}};
    for (const auto& [before, after] : rows) {
        RealEditor editor;
        editor.Show(FromCaretPicture(before));
        QTest::mouseDClick(editor.Edit()->viewport(), Qt::LeftButton, {},
                           editor.Edit()->cursorRect().center());
        EXPECT_EQ(ToPicture(editor.Shown()), after);
    }
}

// Typing that no key event brings: an input method's, or a dead key's.
TEST(Editor, TakesTheTextOfAnInputMethodAsTyped) {
    RealEditor editor;
    editor.Show(FromCaretPicture("{r}C|005{g} LINE FEED{k}\n"));
    const auto compose = [&](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(editor.Edit(), &event);
    };
    compose("é");
    compose(" ");
    for (const KeyStroke& stroke : ParseKeys("<End><Left><Left><Left><Left><Left><Left>"))
        editor.Send(stroke);
    compose("ê");
    compose(" ");
    EXPECT_EQ(ToPicture(editor.Shown()), "{r}C{k}é÷{r}005{g} LINê |E FEED{k}\n");
}

}  // namespace
}  // namespace varno
