// Marked text, the editor in memory and the insert procedures.
#include <gtest/gtest.h>

#include "codec/insert.h"
#include "codec/memory_editor.h"
#include "tests/codec/picture.h"

namespace varno {
namespace {

TEST(MarkedText, KeepsAFormatForEachUnit) {
    MarkedText text = FromPicture("ab{r}C005{g} x");
    text.Insert(2, u"\r\n", {});
    EXPECT_EQ(ToPicture(text), "ab\n{r}C005{g} x");
    EXPECT_EQ(text.RunEnd(0), 4U);
    EXPECT_EQ(text.RunEnd(5), 8U);
    EXPECT_EQ(text.RunEnd(10), 10U);
    text.Erase(1, 4);
    text.Erase(4, 99);
    EXPECT_EQ(ToPicture(text), "a{r}005");
}

TEST(MemoryEditor, KeepsTheCaretInsideTheTextAndTakesItsFormat) {
    const Colour before[] = {TextColour,    TextColour,    ControlCodeColour,
                             CommentColour, CommentColour, TextColour};
    MemoryEditor editor(FromPicture("a{r}C{g} x{k}\n"));
    for (int caret = 0; caret < 6; ++caret) {
        editor.SetSelStart(caret);
        EXPECT_EQ(editor.TypingFormat().colour, before[caret]) << caret;
        EXPECT_EQ(editor.SelColor(), before[caret]) << caret;
    }
    editor.Select(4, 99);
    EXPECT_EQ(editor.SelLength(), 2);
    editor.Select(1, 2);
    EXPECT_EQ(editor.TypingFormat().colour, CommentColour);  // as on the screen
    editor.SetTypingFormat({ControlCodeColour});
    EXPECT_EQ(editor.SelColor(), CommentColour);
    editor.SetSelStart(99);
    editor.SetTypingFormat({ControlCodeColour});
    EXPECT_EQ(editor.SelColor(), ControlCodeColour);
    EXPECT_EQ(editor.SelStart(), 6);
    EXPECT_EQ(editor.SelLength(), 0);
    editor.SetSelStart(-1);
    EXPECT_EQ(editor.SelStart(), 0);
    editor.SetContent(FromPicture("{r}C005{g} NET W"));
    for (const int outside : {-3, -1, 0, 11, 99}) {
        EXPECT_EQ(editor.CharAt(outside), 0) << outside;
    }
    EXPECT_EQ(editor.CharAt(1), u'C');
    EXPECT_EQ(editor.CharAt(10), u'W');
}

TEST(Insert, WritesAtTheCaretAndReplacesASelection) {
    MemoryEditor editor(FromPicture("ab{r}C005"));
    editor.SetSelStart(1);
    InsertControlMark(editor, u"012");
    InsertComment(editor, u" NET");
    InsertPlain(editor, LineBreak);
    InsertPrintMark(editor, u"7");
    InsertAsciiMark(editor, u"27");
    EXPECT_EQ(ToPicture(editor.Content()), "a{r}C012{g} NET{k}\n{b}P7{m}A27{k}b{r}C005");
    EXPECT_EQ(editor.SelStart(), 16);
    editor.Select(1, 15);
    SetTypingFormat(editor, TextColour, "SBIU");
    InsertText(editor, u"x");
    EXPECT_EQ(ToPicture(editor.Content()), "a{kBIUS}x{k}b{r}C005");
    EXPECT_EQ(editor.SelLength(), 0);
    editor.Select(1, 2);
    InsertComment(editor);  // an empty text only sets the typing format
    EXPECT_EQ(editor.SelLength(), 2);
    InsertText(editor, u"y");
    EXPECT_EQ(ToPicture(editor.Content()), "a{g}y{r}C005");
}

}  // namespace
}  // namespace varno
