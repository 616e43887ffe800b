#include <gtest/gtest.h>

#include "codec/text_limits.h"
#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tests/rtf/marked_text_samples.h"

namespace varno {
namespace {

using namespace std::string_literals;

struct Case {
    const char* name;
    std::string rtf;
    std::string expected;
};

std::string Read(const std::string& rtf) {
    MarkedText text;
    const Error error = LoadMarkedText(rtf, text);
    return error ? "refused: " + *error : ToPicture(text);
}

void Check(const std::vector<Case>& cases) {
    for (const Case& c : cases) {
        EXPECT_EQ(Read(c.rtf), c.expected) << c.name << ": " << c.rtf;
    }
}

// Colours 1 red, 2 green, 3 blue; fonts of several character sets.
std::string Document(const std::string& body) {
    return R"({\rtf1\ansi\ansicpg1252\deff0\deflang1031{\fonttbl{\f0\fmodern\fcharset0 Courier;})"
           R"({\f1\fnil\fcharset204 Courier New;}{\f2\fnil\fcharset128 MS Gothic;})"
           R"({\f3\fnil\fcharset134 SimSun;}{\f4\fnil\fcharset129 Batang;})"
           R"({\f5\fnil\fcharset136 MingLiU;}{\f6\froman\fcharset2 Symbol;})"
           R"({\f7\fnil\fcharset77 Monaco;}{\f8\fnil\fcharset2 Wingdings;}{\f9\fnil\cpg866 Dos;})"
           R"({\f10\fnil\fcharset238 A;}{\f11\fnil\fcharset161 B;}{\f12\fnil\fcharset162 C;})"
           R"({\f13\fnil\fcharset177 D;}{\f14\fnil\fcharset178 E;}{\f15\fnil\fcharset186 F;})"
           R"({\f16\fnil\fcharset163 G;}{\f17\fnil\fcharset222 H;})"
           R"({\f18\fnil\fcharset1 I{\*\falt J};}})"
           R"({\colortbl ;\red255\green0\blue0;\red0\green160\blue0;\red0\green0\blue255;})"
           R"({\stylesheet{\s1\b\cf1 Heading;}{\*\cs2\i Emphasis;}})" +
           body + "}";
}

void CheckBodies(std::vector<Case> cases) {
    for (Case& c : cases) {
        c.rtf = Document(c.rtf);
    }
    Check(cases);
}

TEST(RtfReader, ReadsTheDialectsInWhichTicketsOccur) {
    Check({
        {"oldest: no empty first colour, \\plain before every change",
         R"({\rtf1\ansi\deff0{\fonttbl{\f0\fnil Courier;}})"
         R"({\colortbl\red0\green0\blue0;\red255\green0\blue255;\red0\green160\blue0;})"
         "\r\n"
         R"(\deflang1033\pard\plain\f0\fs20 AB\plain\f0\fs20\cf1 A027\plain\f0\fs20\cf2 esc)"
         R"(\plain\f0\fs20 \'ac\par )"
         "\r\n}\r\n",
         "AB{m}A027{g}esc{k}¬"},
        {"later: viewkind, colours from 1",
         R"({\rtf1\ansi\ansicpg1252\deff0\deflang1033{\fonttbl{\f0\fmodern\fcharset0 Courier;}})"
         "\r\n"
         R"({\colortbl ;\red255\green0\blue0;\red0\green160\blue0;})"
         "\r\n"
         R"(\viewkind4\uc1\pard\f0\fs20 Net\'f7\cf1 C005\cf2 NET\cf0\'ac\par)"
         "\r\nx\\par\r\n}\r\n",
         "Net÷{r}C005{g}NET{k}¬\nx"},
        {"a NUL behind the end", "{\\rtf1\\ansi\\pard a\\par\r\nb\\par\r\n}\r\n\0"s, "a\nb"},
        {"byte-order mark and white space", "\xEF\xBB\xBF \r\n\t{\\rtf1 a}", "a"},
        {"UTF-8 document", "{\\urtf1 \xE2\x82\xAC}", "€"},
        {"later text is no part of it", "{\\rtf1 a}b{\\b c}", "a"},
    });
}

TEST(RtfReader, RefusesWhatIsNoRichText) {
    const std::string refused = "refused: The file is not a rich text (RTF) document.";
    Check({{"empty", "", refused},
           {"plain text", "Net C005", refused},
           {"other group", "{\\rt", refused},
           {"cut behind the name", "{\\rtf", ""}});
    MarkedText kept;
    kept.Append(u"kept", {});
    EXPECT_TRUE(LoadMarkedText("no", kept));
    EXPECT_EQ(ToPicture(kept), "kept");
}

// The longest text comes back from its file; what is longer is not read to its end.
TEST(RtfReader, RefusesWhatIsLongerThanTheEditorTakes) {
    for (const TextSize most : {TextSize{MostCharacters, 0}, {0, MostLines - 1}}) {
        std::u16string longest(most.characters, u'x');
        for (std::size_t i = 0; i < most.lineBreaks; ++i) {
            longest += LineBreak;
        }
        MarkedText text;
        text.Append(longest, {});
        EXPECT_EQ(Read(WriteRtf(text)), ToPicture(text));
        text.Append(longest.substr(0, 2), {});
        EXPECT_EQ(LoadMarkedText(WriteRtf(text), text), TooLongForATicket);
    }
    RtfDocument document;
    for (const char* text :
         {"{\\rtf1 abcd", "{\\rtf1 a\\par\\par", "{\\rtf1\\trowd a\\cell\\cell"}) {
        EXPECT_EQ(ReadRtf(text + std::string("\\b("), document, 3), TooLongForATicket) << text;
    }
}

TEST(RtfReader, DropsOneFinalParagraphEnd) {
    CheckBodies({{"none", "", ""},
                 {"only one", "\\par", ""},
                 {"two", "\\par\\par", "\n"},
                 {"text and one", "a\\par", "a"},
                 {"text and two", "a\\par\\par", "a\n"},
                 {"in a group", "{a\\par}", "a"},
                 {"defaults behind it", "a\\par\\pard\\plain\\b", "a"},
                 {"a line break is no paragraph", "a\\line", "a\n"},
                 {"escaped line ends are", "a\\\r\nb\\\n", "a\nb"}});
}

TEST(RtfReader, KeepsColourAndStyles) {
    CheckBodies({
        {"groups end formats", "a{\\b b{\\i c}d}e", "a{kB}b{kBI}c{kB}d{k}e"},
        {"switched off", "\\b\\i\\ul\\strike a\\b0\\i0\\ulnone\\strike0 b", "{kBIUS}a{k}b"},
        {"plain ends all", "{\\cf1\\b a\\plain b}c", "{rB}a{k}bc"},
        {"underlines", "{\\uldb a}{\\ulwave b}{\\uld c}{\\ulw0 d}{\\striked1 e}",
         "{kU}abc{k}d{kS}e"},
        {"automatic and missing colours", "\\cf3 a\\cf0 b\\cf2 c\\cf99 d\\cf-1 e\\cf",
         "{b}a{k}b{g}c{k}de"},
        {"the break has the format at its end", "a\\cf1\\par b", "a{r}\nb"},
        {"styles are repeated by their writers", "\\pard\\plain\\s1 a\\pard\\plain\\s1\\b b",
         "a{kB}b"},
        {"East Asian bold apart from other text's",
         "\\dbch\\af2\\ab{\\loch a}{\\dbch b}\\rtlch\\ab\\ltrch c\\plain\\dbch d", "a{kB}b{k}cd"},
        {"and of right-to-left text, by its letters",
         "{\\rtlch\\ab\\ltrch a \\u1488? 1\\u1575?b}{\\ltrch\\ab\\rtlch\\ai a\\u1488?}\\u1488?",
         "a {kB}א 1ا{k}b{kB}a{kI}א{k}א"},
        {"sizes, fonts and papers mean nothing", "a{\\fs48\\f1\\highlight1 b}{\\super c}", "abc"},
    });
    Check({{"theme colour with its value",
            R"({\rtf1{\colortbl;\ctextone\ctint255\cshade255\red1\green2\blue3;}\cf1 a})",
            "{x197121}a"},
           {"colours out of range", R"({\rtf1{\colortbl;\red999\green-5\blue0;}\cf1 a})", "{r}a"}});
}

TEST(RtfReader, DecodesCodePagesOfDocumentsAndFonts) {
    Check({{"ansi", "{\\rtf1\\ansi \\'80\\'e4}", "€ä"},
           {"mac", "{\\rtf1\\mac \\'8a\\'c2}", "ä¬"},
           {"pc", "{\\rtf1\\pc \\'84\\'aa}", "ä¬"},
           {"pca", "{\\rtf1\\pca \\'84\\'f6}", "ä÷"},
           {"by number", "{\\rtf1\\ansi\\ansicpg1251 \\'c0\\'ff}", "Ая"},
           {"UTF-8", "{\\rtf1\\ansi\\ansicpg65001 \\'e2\\'82\\'ac\xC3\xA4}", "€ä"},
           {"unknown number", "{\\rtf1\\ansi\\ansicpg4711 \\'e4}", "ä"}});
    CheckBodies({
        {"raw bytes", "\\f1 \xC0", "А"},
        {"Japanese", "\\f2 \\'93\\'fa\\'96\\'7b", "日本"},
        {"Japanese, second byte as text", "\\f2 \\'83A\\'83\\\\", "ア\u30BD"},
        {"Chinese, one byte a line", "\\f3 \\'d6\r\n\\'d0", "中"},
        {"Korean", "\\f4 \\'b0\\'a1", "가"},
        {"traditional Chinese", "\\f5 \\'a4\\'a4", "中"},
        {"Symbol", "\\f6 \\'61\\'a3 \\u-3999?", "α≤ α"},
        {"Mac font", "\\f7 \\'8a", "ä"},
        {"pictures stay what they are", "\\f8 \\'fc", "\uF0FC"},
        {"by number in the table", "\\f9 \\'80", "А"},
        {"Polish", "\\f10 \\'b9", "ą"},
        {"Greek", "\\f11 \\'e1", "α"},
        {"Turkish", "\\f12 \\'fd", "ı"},
        {"Hebrew", "\\f13 \\'e0", "א"},
        {"Arabic", "\\f14 \\'c7", "ا"},
        {"Baltic", "\\f15 \\'e0", "ą"},
        {"Vietnamese, letter held back", "\\f16 \\'e2", "â"},
        {"Thai", "\\f17 \\'a1", "ก"},
        {"as the document", "\\f18 \\'e4", "ä"},
        {"font not in the table", "\\f77 \\'e4", "ä"},
        {"half a character", "\\f2 \\'93\\b x", "\uFFFD{kB}x"},
        {"back to the font outside", "{\\f1 \\'c0}\\'c0", "АÀ"},
    });
}

TEST(RtfReader, TakesUnicodeAndLeavesItsReplacementOut) {
    CheckBodies({
        {"negative", "\\u-10179?\\u-8704?", "\U0001F600"},
        {"whole code point", "\\u128512?", "\U0001F600"},
        {"too large", "\\u99999999999?x", "\uFFFDx"},
        {"replacement in hexadecimal", "\\u8364\\'80x", "€x"},
        {"none", "\\uc0\\u8364 x", "€x"},
        {"two", "\\uc2\\u26085\\'93\\'fax", "日x"},
        {"a word or symbol for a character is one", "\\uc2\\u8364\\emdash\\{x", "€x"},
        {"missing in front of a word", "a\\u8364\\par b\\u228\\b z\\b0\\u8364\\tab{}\\u8364\\\nx",
         "a€\nbä{kB}z{k}€\t€\nx"},
        {"missing in a pair", "\\u-10179\\u-8704\\b z", "\U0001F600{kB}z"},
        {"binary data is one", "\\u8364\\bin3 }}}x", "€x"},
        {"a group ends it", "{\\uc9\\u8364 ?}x{\\u8364}x", "€x€x"},
        {"count holds for the group", "{\\uc2 a}\\u8364?x", "a€x"},
        {"both forms of a text", "a{\\upr{bad \\'80}{\\*\\ud{good \\u8364?}}}b", "agood €b"},
    });
}

TEST(RtfReader, ReadsCharactersThatHaveWords) {
    CheckBodies(
        {{"words", "a\\tab b\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote",
          "a\tb—–•‘’“”"},
         {"symbols", "a\\~b\\_c\\-d\\{\\}\\\\e\\\tf\tg", "a\u00A0b\u2011c\u00ADd{}\\e\tf\tg"},
         {"line ends lay out only", "a\r\nb\nc", "abc"},
         {"blanks count behind the first", "\\b  a  \\b0 b", "{kB} a  {k}b"},
         {"hexadecimal, damaged", "a\\'zzb\\'4Xc", "azzb\x04Xc"}});
}

TEST(RtfReader, LeavesOutWhatIsNoText) {
    CheckBodies({
        {"destinations", "a{\\*\\unknown x{\\b y}}{\\info{\\title x}}{\\header x\\par}b", "ab"},
        {"notes", "a{\\footnote x\\par y}{\\*\\annotation x}{\\xe x}b", "ab"},
        {"unknown words are shown with their group", "a{\\unknown b}c", "abc"},
        {"hidden", "a{\\v x\\par}b{\\v0 c}\\v x\\plain d", "abcd"},
        {"deleted", "a{\\deleted x}b", "ab"},
        {"binary data", "a{\\pict\\wmetafile8\\bin5 }}{\\b}b\\bin2 xxc", "abc"},
        {"objects but for their face", "a{\\object{\\*\\objdata 0102}{\\result{b}}}c", "abc"},
        {"fields but for their result",
         "a{\\field{\\*\\fldinst PAGE}{\\fldrslt 7}}{\\field{\\*"
         "\\fldinst{HYPERLINK \"x\"}}{\\*\\fldrslt{\\ul b}}}c",
         "a7{kU}b{k}c"},
        {"bullets and numbers", "{\\pntext\\f6\\'b7\\tab}a\\par{\\listtext 1.\\tab}b\\par", "a\nb"},
        {"whole items in the group of their bullet",
         "{\\listtext\\pard{1.\\tab }{a}{\\par}}{\\listtext{2.}{\\tab b\\tab c\\par}}", "a\nb\tc"},
        {"headings of the file without their brace", "\\stylesheet a\\shp\\shptxt b", "b\na"},
    });
}

TEST(RtfReader, WritesBoxesInFrontOfTheirParagraph) {
    const std::string box = R"({\shp{\*\shpinst{\sp{\sn x}{\sv y}}{\shptxt\pard )";
    CheckBodies({
        {"paragraphs of its own", "\\b a" + box + "\\plain b\\par c\\par}}{\\shprslt x}}d",
         "b\nc\n{kB}ad"},
        {"old, of one paragraph", "a{\\*\\do\\dptxbx{\\dptxbxtext b}\\dpx1}c\\par d", "b\nac\nd"},
        {"again for old readers", "a" + box + "b\\par}}{\\shprslt{\\*\\do{\\dptxbxtext x}}}}c",
         "b\nac"},
        {"grouped, one in another", "a{\\shpgrp{\\*\\shpinst" + box + "b" + box + "c}}}d}}}}}e",
         "c\nbd\nae"},
        {"in a cell, a table in it",
         "\\trowd\\cellx9\\intbl a" + box + "\\intbl b\\cell c\\cell\\row}}}d\\cell\\row e",
         "b\tc\nad\ne"},
        {"cut", "a" + box + "b", "b\na"},
        {"in a header", "a{\\header" + box + "x}}}{\\shptxt x}}b", "ab"},
        {"hidden", "a{\\v" + box + "x}}}}b", "ab"},
    });
}

TEST(RtfReader, WritesTablesAsTabsAndLines) {
    const std::string row = "\\trowd\\cellx999\\cellx1999";
    CheckBodies({
        {"rows", row + "\\intbl a\\cell b\\cell\\row" + row + "c\\cell\\cell\\row\\pard d",
         "a\tb\nc\t\nd"},
        {"last row ends the text", row + "\\intbl a\\cell b\\cell\\row", "a\tb"},
        {"text around", "x\\par" + row + "\\pard\\intbl a\\cell\\row\\pard y\\par", "x\na\ny"},
        {"table in a table",
         row +
             "\\pard\\intbl a\\par\\pard\\intbl\\itap2 b\\nestcell c\\nestcell{\\*\\nesttableprops"
             "\\trowd\\cellx5\\cellx9\\nestrow}{\\nonesttables\\par}\\pard\\intbl\\itap1\\cell "
             "d\\cell\\row\\pard e",
         "a\nb\tc\td\ne"},
        {"cut row", row + "\\intbl a\\cell b", "a\tb"},
        {"row without its table", "a\\row b\\cell\\row", "a\nb"},
    });
}

}  // namespace
}  // namespace varno
