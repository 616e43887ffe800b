// Tickets on paper, and the paper as text.
#include "paper/layout.h"

#include <gtest/gtest.h>

#include "paper/effects_text.h"
#include "paper/svg.h"
#include "paper/text.h"
#include "tests/paper/drawing.h"

namespace varno {
namespace {

constexpr std::string_view Codes =
    "width 20\n1 reset\n5 feed 1\n8 feed 3\n12 feed 2, cut\n13 cut\n46 nothing\nA7 nothing\n"
    "17 bold on\n18 bold off\n19 double width on\n20 double width off\n21 double height on\n"
    "23 underline on\n24 underline off\n29 inverse on\n37 align left\n38 align centre\n"
    "39 align right\n40 margin 5\n41 margin 200\n42 margin 0\n43 tab 10\n44 tab 200\n"
    "P1 6 \"4711\" left\nP8 \"VARNO\"\nP12 8 \"12480\"\nP15 \"kg\"\nP16 30 \"x\"\n";

Paper PaperOf(std::string_view ticket, std::string_view more = "") {
    Effects effects;
    EXPECT_EQ(ParseEffects(Codes, effects), std::vector<std::string>());
    EXPECT_EQ(ParseEffects(more, effects), std::vector<std::string>());
    return LayOut(TicketOf(ticket), effects);
}

TEST(Layout, PrintsTickets) {
    const struct {
        const char* what;
        std::string ticket;
        std::string paper;
        const char* more = "";
    } table[] = {
        {"a receipt",
         "{C001}{C038}{C017}{P008}{C018}\n{C037}No. {P001}{C046}!\n{C005}Gross{P012} {P015}\n"
         "{C023}Net  {P012}{C024} {P015}\n{C012}",
         "       {Bs}VARNO\nNo. {s}4711  {}!\n=1\nGross{s}   12480{} {s}kg\n"
         "{U}Net  {Us}   12480{} {s}kg\n=2\n---\n"},
        {"nothing", "", ""},
        {"codes that print nothing", "{C046}{A7}{C017}{C018}", ""},
        {"empty lines, and one without an end", "\n\na\n\nb", "\n\na\n\nb\n"},
        {"a line as long as the paper", "12345678901234567890\na", "12345678901234567890\na\n"},
        {"one that is longer", "12345678901234567890a\nb", "12345678901234567890/\na\nb\n"},
        {"double width at the edge", "123456789012345{C019}ABC{C020}d",
         "123456789012345{W}AB/\n{W}C{}d\n"},
        {"double width fits", "1234567890123456{C019}AB\nC", "1234567890123456{W}AB\n{W}C\n"},
        {"a value across the edge", "123456789012345{P012}{P015}",
         "123456789012345{s}   12/\n{s}480kg\n"},
        {"a value longer than the paper", "{P016}", "{s}                    /\n{s}         x\n"},
        {"feeds in lines and between them", "a{C005}b{C008}{C008}\nc{C012}d{C013}{C013}",
         "a\nb\n=2\n=3\n\nc\n=1\n---\nd\n---\n---\n"},
        {"unknown codes", "a{C002}{P999}{A27}{A999}{A129}{A10}{A13}b",
         "a{x}[C002][P999][A27]/\n{x}[A999][A129][A10]/\n{x}[A13]{}b\n"},
        {"words of no class", "{W0812}{W1000}{W8005}{WFFFF}",
         "{x}[W0812][W1000]/\n{x}[W8005][WFFFF]\n"},
        {"characters beyond ASCII", "{A65}{A233}{A128}{A126}{A127}",
         "A{a}\u00E9\u20AC{}~{x}[A127]\n"},
        {"pairs of CR and LF only end lines", "a{A13}{A13}{A10}b", "a{x}[A13]\nb\n"},
        {"LF given an effect", "a{A10}b", "a\nb\n", "A10 feed 1"},
        {"sides", "{C039}right\n{C038}odd\n{C002}{C039}x\n{C037}l{C039}eft\nr",
         "               right\n        odd\n             {x}[C002]{}x\nleft\n"
         "                   r\n"},
        {"margins", "{C040}1{C042}23456789012345678\n{C041}a{C042}b\n",
         "     123456789012345/\n678\n            ab\n"},
        {"tabs", "ab{C043}c\n12345678901{C043}d\n{C044}e",
         "ab{t}       {}c\n12345678901d\n{t}                    /\ne\n"},
        {"styles without an end, and reset", "{C017}{C021}{C029}{C039}a\nb{C001}c\nd",
         "                   {BHI}a\n                  {BHI}b{}c\nd\n"},
        {"the paper's own side", "a{C037}\nb{C001}\nc", "    a\nb\n    c\n",
         "width 9\nalign centre"},
    };
    for (const auto& row : table) {
        EXPECT_EQ(Drawn(PaperOf(row.ticket, row.more)), row.paper) << row.what;
    }
}

TEST(Layout, ShowsBoxesWithoutEffects) {
    EXPECT_EQ(Drawn(LayOut(TicketOf("{C017}a{P012}\n"), {})), "{x}[C017]{}a{x}[P012]\n");
}

TEST(Layout, TakesNoWidthThatIsNoPaper) {
    Effects effects;
    for (const auto& [wanted, got] : {std::pair(0, 8), {-7, 8}, {9, 9}, {10000, 255}}) {
        effects.paperWidth = wanted;
        EXPECT_EQ(LayOut(TicketOf("a"), effects).width, got);
    }
}

TEST(Layout, SaysWhichStylesWereLeftOn) {
    EXPECT_EQ(PaperOf("{C017}{C019}a{C020}").stylesLeft, PaperStyle::Bold);
    EXPECT_EQ(PaperOf("{C017}a{C001}").stylesLeft, 0U);
}

// What a caret shows and a click finds.
TEST(Paper, KnowsThePlacesOfWords) {
    const Paper paper = PaperOf("{C017}{C039}a\n{C005}{C019}12345678{P001}{C012}b");
    ASSERT_EQ(Drawn(paper),
              "                   {B}a\n=1\n{BW}12345678{BWs}47/\n            {BWs}11  \n=1\n---\n"
              "                  {BW}b\n");
    const std::pair<std::size_t, PaperPlace> places[] = {
        {0, {0, 19}}, {2, {0, 19}},  {3, {0, 20}},  {4, {1, 0}},   {5, {1, 0}},   {6, {2, 0}},
        {8, {2, 2}},  {14, {2, 14}}, {15, {2, 16}}, {16, {3, 20}}, {17, {6, 18}}, {18, {6, 20}}};
    for (const auto& [index, place] : places) {
        EXPECT_EQ(PlaceOf(paper, index), place) << index;
    }
    EXPECT_EQ(PlaceOf(PaperOf("a\n"), 3), (PaperPlace{1, 0}));
    const std::pair<PaperPlace, std::size_t> words[] = {
        {{0, 0}, 0},   {{0, 19}, 2},  {{0, 99}, 3},  {{1, 5}, 5},   {{2, 15}, 14},
        {{2, 17}, 15}, {{3, 0}, 15},  {{3, 12}, 15}, {{3, 20}, 16}, {{5, 0}, 16},
        {{6, 0}, 17},  {{6, 18}, 17}, {{6, 20}, 18}, {{7, 0}, 18}};
    for (const auto& [place, index] : words) {
        EXPECT_EQ(WordAt(paper, place), index) << place.row << ", " << place.column;
    }
    EXPECT_EQ(WordAt(PaperOf("{C039}x{C005}y"), {1, 0}), 3U);
}

TEST(Paper, IsText) {
    const Paper paper = PaperOf(
        "{C017}Net{P012}{C018} kg  \n{C039}\n{C037}{C019}{C029}A "
        "{C001}{C008}{C038}<&{A233}>\n{C013}"
        "a line of 23 characters");
    const std::string below =
        "\n\n\n        <&\u00E9>\n\u2702 - - - - - - - - -\n"
        "a line of 23 charact\u21B5\n        ers\n";
    EXPECT_EQ(PaperText(paper), "Net   12480 kg\n\nA" + below);
    EXPECT_EQ(TerminalText(paper),
              "\x1B[0;1mNet\x1B[0;1;2m   12480\x1B[0m kg\n\n\x1B[0;7mA  \x1B[0m" + below);
}

TEST(Paper, IsAPicture) {
    const std::string svg = PaperSvg(PaperOf("a{C021}{C019}<{C001}{C002}\n{C029}{A233}{P015}"));
    std::size_t at = 0;
    for (const char* part :
         {"translate(20,62) scale(1,1)", ">a<", "translate(32,56) scale(2,2)", ">&lt;<",
          "translate(56,62) scale(1,1)", "> C002 <", "fill=\"#ffffff\"", ">\u00E9<", ">kg<"}) {
        at = svg.find(part, at);
        ASSERT_NE(at, std::string::npos) << part << "\n" << svg;
    }
}

}  // namespace
}  // namespace varno
