#include "preview/caret_sentence.h"

#include <gtest/gtest.h>

#include "paper/effects_text.h"
#include "tests/window/caret_picture.h"

namespace varno {
namespace {

TEST(CaretSentence, SaysWhereTheCaretIsAndWhatIsThere) {
    Effects effects;
    ASSERT_EQ(ParseEffects("width 24\n17 bold on, feed 1\n18 double height on\n5 nothing\n"
                           "6 cut\n8 align centre\n9 tab 12\n10 feed 2\n11 margin 1\n12 reset\n"
                           "P12 8 \"12480\"\n",
                           effects),
              std::vector<std::string>());
    const CodeComment comment = [](Word code) {
        return std::string(code == ControlCode + 5 ? "LINE FEED" : "");
    };
    const struct {
        const char* ticket;
        const char* place;  // "line, column", or none
        const char* said;
    } table[] = {
        {"|", "", "The ticket is empty."},
        {"ab|", "1, 3", "The end of the ticket."},
        {"ab¬\n|", "2, 1", "The end of the ticket."},
        {"a|b", "1, 2", "The character \"b\"."},
        {"a[b]", "1, 2", "The character \"b\"."},
        {"a|÷b", "1, 2", "A space."},
        {"a|¬\nb", "1, 2", "The end of the printed line."},
        {"a|\nb", "1, 2", "The end of the line in the editor, which prints nothing."},
        {"|😀", "1, 1", "The character \"😀\" prints \"?\"."},
        {"¬\n¬\nabc{r}|C005{g} LINE FEED{k}", "3, 4",
         "Control code 005, LINE FEED, prints nothing."},
        {"ab{r}C0|05{k}c", "1, 3", "Control code 005, LINE FEED, prints nothing."},
        {"{r}C005{g} LINE| FEED{k}\na", "1, 1", "A comment, which is not in the ticket."},
        {"a{r}|C017{k}", "1, 2", "Control code 017 switches bold on, feeds 1 line."},
        {"{r}|C018{k}", "1, 1", "Control code 018 switches double height on."},
        {"{r}|C006{k}", "1, 1", "Control code 006 cuts the paper."},
        {"{r}|C008{k}", "1, 1", "Control code 008 aligns lines in the centre."},
        {"{r}|C009{k}", "1, 1", "Control code 009 goes to column 12."},
        {"{r}|C010{k}", "1, 1", "Control code 010 feeds 2 lines."},
        {"{r}|C011{k}", "1, 1", "Control code 011 sets a margin of 1 column."},
        {"{r}|C012{k}", "1, 1", "Control code 012 ends styles, sides and margins."},
        {"{r}|C999{k}", "1, 1", "Control code 999 has an effect on the paper that is not known."},
        {"{r}|C2048{k}a", "1, 1",
         "Control code 2048 is not in the ticket: its number is above 2047."},
        {"{b}|P012{k}÷kg", "1, 1", "Print code 012 prints a value such as \"   12480\"."},
        {"{b}P012{k}|÷kg", "1, 9", "A space."},
        {"{m}|A233{k}", "1, 1", "ASCII code 233 prints \"é\"."},
        {"{m}A233|{k}b", "1, 2", "The character \"b\"."},
        {"{r}a|b", "1, 1", "Coloured text that is no code, which is not in the ticket."},
        {"{x}|b", "1, 1", "Coloured text that is no code, which is not in the ticket."},
        {"a|\tb", "1, 2", "A control character, which is not in the ticket."},
        // Double height takes two lines, a cut none, a broken line two.
        {"{r}C018{k}a¬\n{r}C006{k}|b", "3, 1", "The character \"b\"."},
        {"123456789012345678901234|5", "2, 1", "The character \"5\"."},
        {"12345678901234567890{b}|P012{k}", "1, 21",
         "Print code 012 prints a value such as \"   12480\"."},
    };
    for (const auto& row : table) {
        const CaretPicture picture = FromCaretPicture(row.ticket);
        std::string place(row.place);
        if (!place.empty()) {
            place = "Printed line " + place.replace(1, 1, ", column") + " of the paper. ";
        }
        EXPECT_EQ(
            CaretSentence(picture.text, static_cast<std::size_t>(picture.start), effects, comment),
            place + row.said)
            << row.ticket;
    }
}

}  // namespace
}  // namespace varno
