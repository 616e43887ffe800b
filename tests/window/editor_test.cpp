// The ticket editor on the real control, with real key and mouse events.
#include <gtest/gtest.h>

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

}  // namespace
}  // namespace varno
