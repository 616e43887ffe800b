// The ticket editor on the real control, with real key and mouse events.
#include <gtest/gtest.h>

#include <QInputMethodEvent>
#include <array>

#include "platform/qt/marked_cursor.h"
#include "tests/window/caret_picture.h"
#include "tests/window/keys.h"
#include "tests/window/real_window.h"

namespace varno {
namespace {

struct KeyPicture {
    const char* before;
    const char* keys;
    const char* after;
};

constexpr std::array KeyPictures{
    // Behind a marker only Backspace does something; afterwards the caret is in front of it.
    KeyPicture{"abc¬|\ndef", "x", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "7", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "<Enter>", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "<Del>", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "<A-A>", "abc|¬\ndef"},
    KeyPicture{"abc¬|\ndef", "<BS>", "abc|\ndef"},
    KeyPicture{"abc¬|", "x", "abc|¬"},
    KeyPicture{"{g}ab{k}¬|\n", "x", "{g}ab|{k}¬\n"},

    // The caret keeps out of line ends and takes the role it stands in.
    KeyPicture{"abc¬|\ndef", "<Click>", "abc|¬\ndef"},
    KeyPicture{"abc|¬\ndef", "<Click>", "abc|¬\ndef"},
    KeyPicture{"abc¬[\nd]ef", "<F5>", "abc¬[\nd]ef"},
    KeyPicture{"a|bc", "<Right><Right>x", "abcx|"},
    KeyPicture{"abc|¬\ndef", "<Right>", "abc|¬\ndef"},
    KeyPicture{"abc¬\n|def", "<Left>", "abc|¬\ndef"},
    KeyPicture{"ab\n|cd", "<Left>", "ab|\ncd"},
    KeyPicture{"ab|\ncd", "<Right>", "ab\n|cd"},
    KeyPicture{"{m}A27|{k}b", "<Click>", "{m}A27|{k}b"},
    KeyPicture{"{x}ab|", "<Click>", "{x}ab{k}|"},
    KeyPicture{"{gBIUS}ab|", "<Click>x", "{gBIUS}ab{g}x|"},
    KeyPicture{"{b}P012|", "<Ins>", "{b}P012|"},
    KeyPicture{"|{g}ab", "<Click>x", "x|{g}ab"},

    // Letters are black, except in a comment.
    KeyPicture{"{r}C005|", "x", "{r}C005{k}x|"},
    KeyPicture{"{r}C0|05", "x", "{r}C0{k}x|{r}05"},
    KeyPicture{"{b}P012|", "é", "{b}P012{k}é|"},
    KeyPicture{"{r}C005{g} NET|", "to.", "{r}C005{g} NETto.|"},
    KeyPicture{"{r}C005{g}| NET", "x", "{r}C005{g}x| NET"},
    KeyPicture{"{r}C005|{g} NET", "x", "{r}C005{k}x|{g} NET"},
    KeyPicture{"{r}C005|", "<F5>7", "{r}C005{k}7|"},
    KeyPicture{"a[{r}C005]{k}b", "x", "ax|b"},
    KeyPicture{"a[{g}net]{k}b", "x", "a{g}x|{k}b"},
    KeyPicture{"a[{r}C0{g} net]{k}b", "x", "a{g}x|{k}b"},
    KeyPicture{"a[{r}C005]{k}b", "<C-C>", "a[{r}C005]{k}b"},

    // With Alt nothing is typed; the typing format becomes black.
    KeyPicture{"{g}ab|", "<A-X>", "{g}ab{k}|"},
    KeyPicture{"{r}C|", "12<A-X>34", "{r}C12{k}34|"},

    // Digits: three in a row take the colour of what stands before them.
    KeyPicture{"|", "12345", "12345|"},
    KeyPicture{"{r}C|", "12345", "{r}C123{k}45|"},
    KeyPicture{"{r}C005|", "7", "{r}C0057|"},
    KeyPicture{"{b}P|", "<Pad0><Pad5><Pad9><Pad1>", "{b}P059{k}1|"},
    KeyPicture{"{m}A|", "2<C-7>", "{m}A27|"},
    KeyPicture{"{r}C|", "12<Left><Right>34", "{r}C1234|"},
    KeyPicture{"{r}C|", "12<BS>34", "{r}C134|"},
    KeyPicture{"{r}C|", "12<Click>34", "{r}C123{k}4|"},
    KeyPicture{"{r}C|", "12x34", "{r}C12{k}x34|"},
    KeyPicture{"{r}C|", "12/34", "{r}C12{k}/34|"},
    KeyPicture{"{r}C|", "12<C-S-F5>34", "{r}C123{k}4|"},
    KeyPicture{"{g}net |", "1234", "{g}net 123{k}4|"},
    KeyPicture{"a[{r}C0]{k}b", "7", "a{r}7|{k}b"},

    // Space: a marker for the ticket, a real one for a comment.
    KeyPicture{"ab|", " ", "ab÷|"},
    KeyPicture{"ab|", "<S-Space>", "ab÷|"},
    KeyPicture{"ab|", "<C-Space>x y", "ab{g} x y|"},
    KeyPicture{"{r}C005|", " ", "{r}C005{k}÷|"},
    KeyPicture{"{g}net|", " ", "{g}net |"},
    KeyPicture{"{g}n|et", "<S-Space>", "{g}n |et"},
    KeyPicture{"a[bc]d", " ", "a÷|d"},

    // Enter: a printed line end, or with Ctrl a line break only.
    KeyPicture{"ab|cd", "<Enter>", "ab¬\n|cd"},
    KeyPicture{"ab|cd", "<S-Enter>", "ab¬\n|cd"},
    KeyPicture{"ab|cd", "<C-Enter>", "ab\n|cd"},
    KeyPicture{"{r}C0|05", "<Enter>", "{r}C0{k}¬\n|{r}05"},
    KeyPicture{"{g}ab|", "<C-Enter>x", "{g}ab\nx|"},
    KeyPicture{"a[bc]d", "<Enter>", "a¬\n|d"},
    KeyPicture{"|", "<Enter><Enter>a", "¬\n¬\na|"},

    // Delete and Backspace take a line end as a whole.
    KeyPicture{"abc|¬\ndef", "<Del>", "abc|def"},
    KeyPicture{"abc¬\n|def", "<BS>", "abc|def"},
    KeyPicture{"{g}ab{k}¬\n|def", "<BS>", "{g}ab|{k}def"},
    KeyPicture{"|¬\n¬\n", "<Del>", "|¬\n"},
    KeyPicture{"¬\n|¬\n", "<BS>", "|¬\n"},
    KeyPicture{"ab|\ncd", "<Del>", "ab|cd"},
    KeyPicture{"ab\n|cd", "<BS>", "ab|cd"},
    KeyPicture{"a|bc", "<Del>", "a|c"},
    KeyPicture{"ab|c", "<BS>", "a|c"},
    KeyPicture{"|abc", "<BS>", "|abc"},
    KeyPicture{"a¬\n|¬\nb", "<Del>", "a¬\n|b"},
    KeyPicture{"a¬\n|bc", "<Del>", "a¬\n|c"},
    KeyPicture{"abc|¬", "<Del>", "abc|"},
    KeyPicture{"a[bc]d", "<Del>", "a|d"},
    KeyPicture{"a[{r}C005]{k}d", "<BS>", "a|d"},
    KeyPicture{"ab[{m}A7]", "<Del>12", "ab{k}12|"},
    KeyPicture{"[{g}net]", "<BS>Total", "{k}Total|"},
    KeyPicture{"{r}C005\n[{k}ab]", "<Del>7", "{r}C005\n7|"},
    KeyPicture{"{r}C0[{k}¬\nb]", "<Del>7", "{r}C07|"},
    KeyPicture{"a[{r}C0{g} net]{k}b", "7", "a{g}7|{k}b"},
    KeyPicture{"a[¬]\nb", "<Del>", "a|b"},
    // What a selection leaves goes through the rules again.
    KeyPicture{"a¬\n[b]cd", "<BS>", "a|cd"},
    KeyPicture{"a¬\n¬\n[b¬\nc]d", "<BS>", "a¬\n|d"},
    KeyPicture{"a¬\n[¬]\nb", "<BS>", "a|\nb"},
    KeyPicture{"a[¬\n]¬\nb", "<Del>", "a|b"},
};

class Editor : public WindowTest {
  protected:
    // `backwards`: the caret stands at the front of the selection.
    void Show(const CaretPicture& picture, bool backwards = false) {
        box.SetContent(picture.text);
        const int front = ToQtPosition(*edit->document(), picture.start);
        const int end = ToQtPosition(*edit->document(), picture.start + picture.length);
        QTextCursor cursor = edit->textCursor();
        cursor.setPosition(backwards ? end : front);
        cursor.setPosition(backwards ? front : end, QTextCursor::KeepAnchor);
        edit->setTextCursor(cursor);
        if (picture.length == 0) {
            box.SetTypingFormat(picture.typing);
        }
    }
    CaretPicture Shown() const {
        return {box.Content(), box.SelStart(), box.SelLength(), box.TypingFormat()};
    }
    void PressAll(const char* keys) {
        for (const KeyStroke& stroke : ParseKeys(keys)) {
            Press(edit, stroke);
        }
    }
    void Check(const KeyPicture& row, bool backwards) {
        Press(edit, {Qt::Key_F5});  // ends what was typed before
        Show(FromCaretPicture(row.before), backwards);
        PressAll(row.keys);
        const CaretPicture expected = FromCaretPicture(row.after);
        CaretPicture shown = Shown();
        if (expected.start < 0) {
            shown.start = -1;
        }
        EXPECT_EQ(ToPicture(shown), ToPicture(expected))
            << "before: " << row.before << (backwards ? ", backwards" : "")
            << "\nkeys:   " << row.keys;
    }
    void Check(const KeyPicture& row) {
        Check(row, false);
        // Every selection is made in both directions.
        if (FromCaretPicture(row.before).length > 0) {
            Check(row, true);
        }
    }
};

TEST_F(Editor, DoesWhatThePicturesShow) {
    for (const KeyPicture& row : KeyPictures) {
        Check(row);
    }
}

// What the control does by itself, beside the rules.
TEST_F(Editor, KeepsToTheRulesWithItsOwnKeys) {
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
    for (const KeyPicture& row : rows) {
        Check(row);
    }
}

TEST_F(Editor, SelectsAWordByDoubleClick) {
    const std::pair<const char*, const char*> rows[] = {
        {"Ne|t÷5", "[Net]÷5"},    {"Net|÷5", "[Net]÷5"}, {"x{r}C0|05{g} NET", "x{r}[C005]{g} NET"},
        {"5÷|÷kg", "5[÷÷]kg"},    {"5.|¬\n", "5[.]¬\n"}, {"ab|{r}C005", "ab{r}[C005]"},
        {"a¬\n|¬\n", "a¬\n|¬\n"}, {"a.|", "a[.]"},       {"|", "|"}};
    for (const auto& [before, after] : rows) {
        Show(FromCaretPicture(before));
        if (box.HasText()) {  // a double click puts, too
            script.Expect({"Enter a valid ticket number (200..999).", "Bad Ticket Number",
                           Buttons::Ok, Icon::Exclamation},
                          Answer::Ok);
        }
        QTest::mouseDClick(edit->viewport(), Qt::LeftButton, {}, edit->cursorRect().center());
        EXPECT_EQ(ToPicture(Shown()), after);
    }
}

// Typing that no key event brings: an input method's, or a dead key's.
TEST_F(Editor, TakesTheTextOfAnInputMethodAsTyped) {
    Show(FromCaretPicture("{r}C|005{g} LINE FEED{k}\n"));
    const auto compose = [&](const QString& text) {
        QInputMethodEvent event;
        event.setCommitString(text);
        QApplication::sendEvent(edit, &event);
    };
    compose("é");
    compose(" ");
    PressAll("<End><Left><Left><Left><Left><Left><Left>");
    compose("ê");
    compose(" ");
    EXPECT_EQ(ToPicture(Shown()), "{r}C{k}é÷{r}005{g} LINê |E FEED{k}\n");
}

}  // namespace
}  // namespace varno
