// Where a caret in the editor is on paper, and where a click on paper leads.
#include "preview/previewed_ticket.h"

#include <gtest/gtest.h>

#include "paper/effects_text.h"
#include "paper/text.h"
#include "tests/window/caret_picture.h"

namespace varno {
namespace {

Effects TestEffects() {
    Effects effects;
    EXPECT_EQ(
        ParseEffects("width 10\n17 bold on\n5 feed 2\n39 align right\nP12 5 \"480\"\n", effects),
        std::vector<std::string>());
    return effects;
}

// The paper, with "|" at a place.
std::string Drawn(const Paper& paper, PaperPlace place) {
    std::string drawing;
    for (std::size_t i = 0; i <= paper.rows.size(); ++i) {
        std::u16string row = i < paper.rows.size() ? FromUtf8(RowText(paper, paper.rows[i])) : u"";
        if (i == place.row) {
            row.resize(std::max(row.size(), static_cast<std::size_t>(place.column)), u' ');
            row.insert(static_cast<std::size_t>(place.column), u"|");
        }
        drawing += ToUtf8(row) + (i < paper.rows.size() ? "\n" : "");
    }
    return drawing;
}

TEST(PreviewedTicket, ShowsTheCaretWhereItsTextIsPrinted) {
    const struct {
        const char* ticket;
        const char* paper;
    } table[] = {
        {"|", "|"},
        {"a|b¬\n", "a|b\n"},
        {"ab|¬\n", "ab|\n"},
        {"ab¬\n|", "ab\n|"},
        {"ab|", "ab|\n"},
        {"a{r}|C017{g} BOLD ON{k}\nb", "a|b\n"},
        {"a{r}C017{g} BOLD| ON{k}\nb", "a|b\n"},
        {"{b}|P012{g} NET{k}\n÷kg¬\n", "|  480 kg\n"},
        {"{b}P012{g} |NET{k}\n÷kg¬\n", "  480| kg\n"},
        {"{r}C999{g} ?{k}\n|a", "[C999]|a\n"},
        {"{r}C005{g} |FEED{k}\na", "\n\n|a\n"},
        {"{r}C039{k}a|b¬\n", "        a|b\n"},
        {"12345678901|2", "1234567890↵\n1|2\n"},
        {"😀|é", "?|é\n"},
    };
    for (const auto& row : table) {
        const CaretPicture picture = FromCaretPicture(row.ticket);
        const PreviewedTicket ticket = PreviewOf(picture.text, TestEffects());
        const PaperPlace place = PlaceOfCaret(ticket, static_cast<std::size_t>(picture.start));
        EXPECT_EQ(Drawn(ticket.paper, place), row.paper) << row.ticket;
    }
}

TEST(PreviewedTicket, LeadsBackToWhatPrinted) {
    const struct {
        PaperPlace place;
        const char* ticket;
    } table[] = {
        {{0, 0}, "|ab{b}P012{g} NET{k}\n¬\n{r}C005{k}\nz"},
        {{0, 1}, "a|b{b}P012{g} NET{k}\n¬\n{r}C005{k}\nz"},
        {{0, 4}, "ab{b}|P012{g} NET{k}\n¬\n{r}C005{k}\nz"},
        {{0, 9}, "ab{b}P012{g} NET{k}\n|¬\n{r}C005{k}\nz"},
        {{1, 3}, "ab{b}P012{g} NET{k}\n¬\n{r}|C005{k}\nz"},
        {{2, 0}, "ab{b}P012{g} NET{k}\n¬\n{r}C005{k}\n|z"},
        {{2, 7}, "ab{b}P012{g} NET{k}\n¬\n{r}C005{k}\nz|"},
        {{9, 9}, "ab{b}P012{g} NET{k}\n¬\n{r}C005{k}\nz|"},
        {{0, 0}, "{g}only a comment|"},
    };
    for (const auto& row : table) {
        const CaretPicture wanted = FromCaretPicture(row.ticket);
        const PreviewedTicket ticket = PreviewOf(wanted.text, TestEffects());
        EXPECT_EQ(static_cast<int>(CaretAt(ticket, row.place)), wanted.start) << row.ticket;
    }
}

}  // namespace
}  // namespace varno
