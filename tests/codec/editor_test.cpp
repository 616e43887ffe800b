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
    EXPECT_EQ(text.RunEnd(8), 10U);
    EXPECT_EQ(text.RunEnd(10), 10U);
    text.Erase(1, 4);
    EXPECT_EQ(ToPicture(text), "a{r}005{g} x");
    text.Erase(4, 99);
    EXPECT_EQ(ToPicture(text), "a{r}005");
}

TEST(MemoryEditor, KeepsTheCaretInsideTheText) {
    MemoryEditor editor(FromPicture("ab\n{r}c"));
    editor.SetSelStart(99);
    EXPECT_EQ(editor.SelStart(), 5);
    editor.Select(3, 99);
    EXPECT_EQ(editor.SelLength(), 2);
    editor.SetSelStart(-1);
    EXPECT_EQ(editor.SelStart(), 0);
    EXPECT_EQ(editor.SelLength(), 0);
    EXPECT_EQ(editor.CharAt(0), 0);
    EXPECT_EQ(editor.CharAt(1), u'a');
    EXPECT_EQ(editor.CharAt(5), u'c');
    EXPECT_EQ(editor.CharAt(6), 0);
}

TEST(MemoryEditor, TakesTheTypingFormatFromTheCharacterBefore) {
    const char* const picture = "a{r}C{g} x{k}\n";
    const Colour before[] = {TextColour,    TextColour,    ControlCodeColour,
                             CommentColour, CommentColour, TextColour};
    MemoryEditor editor(FromPicture(picture));
    for (int caret = 0; caret < 6; ++caret) {
        editor.SetSelStart(caret);
        EXPECT_EQ(editor.TypingFormat().colour, before[caret]) << caret;
        EXPECT_EQ(editor.SelColor(), before[caret]) << caret;
    }
    editor.Select(1, 2);
    EXPECT_EQ(editor.SelColor(), CommentColour);
    editor.SetContent(FromPicture("{r}C1"));
    EXPECT_EQ(editor.SelStart(), 0);
    EXPECT_EQ(editor.TypingFormat(), CharFormat{});
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
    EXPECT_EQ(editor.TypingFormat().colour, AsciiCodeColour);
    editor.Select(1, 15);
    SetTypingFormat(editor, TextColour, "SB");
    InsertText(editor, u"x");
    EXPECT_EQ(ToPicture(editor.Content()), "a{kBS}x{k}b{r}C005");
    EXPECT_EQ(editor.SelStart(), 2);
    EXPECT_EQ(editor.SelLength(), 0);
}

TEST(Insert, AnEmptyTextOnlySetsTheTypingFormat) {
    MemoryEditor editor(FromPicture("{rB}C005"));
    editor.Select(0, 4);
    InsertPlain(editor);
    EXPECT_EQ(editor.SelLength(), 4);
    EXPECT_EQ(ToPicture(editor.Content()), "{rB}C005");
    EXPECT_EQ(editor.SelColor(), ControlCodeColour);
    InsertText(editor, u"x");
    EXPECT_EQ(ToPicture(editor.Content()), "x");
    InsertComment(editor);
    InsertText(editor, u"y");
    EXPECT_EQ(ToPicture(editor.Content()), "x{g}y");
}

}  // namespace
}  // namespace varno
