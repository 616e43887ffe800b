// No damage makes the reader crash, hang, or grow beyond what the document's length allows.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tests/rtf/marked_text_picture.h"

namespace varno {
namespace {

const std::string Rich =
    R"({\rtf1\ansi\ansicpg1252\uc1\deff0{\fonttbl{\f0\fmodern\fcharset0 Courier;}{\f1\fcharset128)"
    R"( Gothic;}{\f2\fcharset2 Symbol;}}{\colortbl ;\red255\green0\blue0;\red0\green160\blue0;})"
    R"({\stylesheet{\s0 Normal;}}{\*\generator Someone;}{\info{\title T}}\viewkind4\pard\f0\fs20 )"
    "Gross\\'f7{\\cf1\\b C005\\plain }\\cf2 GROSS\\cf0\\'ac\\par\r\n"
    R"({\pntext\f2\'b7\tab}\pard\li720\fi-360 item {\f1 \'93\'fa\'96\'7b}\u8364?\u-10179?\u-8704?\par)"
    R"(\trowd\trgaph70\clbrdrt\brdrs\cellx1000\cellx2000\pard\intbl a\cell\pard\intbl\itap2 n\nestcell)"
    R"({\*\nesttableprops\trowd\cellx500\nestrow}{\nonesttables\par}\pard\intbl\itap1 b\cell\row)"
    R"(\pard{\field{\*\fldinst HYPERLINK "http://x" \\l "y"}{\fldrslt\ul link}}{\v hidden})"
    R"({\*\shppict{\pict\pngblip\picwgoal150\pichgoal150 89504e470d0a1a0a}}{\upr{x}{\*\ud{y}}})"
    "{\\pict\\jpegblip\\bin4 \xFF\xD8}{}\\line\\tab\\emdash{\\footnote f\\par}{\\deleted "
    "d}end\\par\r\n"
    "}\r\n";

MarkedText ReadBounded(const std::string& rtf) {
    MarkedText text;
    if (!LoadMarkedText(rtf, text)) {
        EXPECT_LE(text.Length(), rtf.size());
    }
    return text;
}

TEST(RtfDamage, ACutDocumentGivesTheTextBeforeTheCut) {
    const std::u16string whole = ReadBounded(Rich).Text();
    ASSERT_EQ(whole.substr(0, 6), u"Gross\u00F7");
    std::size_t longest = 0;
    for (std::size_t length = 0; length <= Rich.size(); ++length) {
        const std::u16string cut = ReadBounded(Rich.substr(0, length)).Text();
        const auto common =
            std::mismatch(cut.begin(), cut.end(), whole.begin(), whole.end()).first - cut.begin();
        const auto agreeing = static_cast<std::size_t>(common);
        EXPECT_LE(cut.size() - agreeing, 2U) << "cut at " << length;  // a word cut to another one
        EXPECT_LE(longest, agreeing + 2) << "cut at " << length;      // nothing read is lost
        longest = std::max(longest, agreeing);
    }
    EXPECT_EQ(longest, whole.size());
}

// Changes, deletes, doubles or inserts a piece.
void Mutate(std::string& rtf, std::mt19937& random) {
    constexpr const char* Insertions[] = {
        "{",           "}",         "\\",       "\\'",           "\\'8",          "\\u",
        "\\u-1 ",      "\\uc-1",    "\\bin9",   "\\bin-3 ",      "\\f9999999999", "\\cf2147483647",
        "\\cellx",     "\\cell",    "\\row",    "\\nestrow",     "\\itap9999",    "\\trowd",
        "\\par",       "{\\*",      "{\\pict",  "{\\fonttbl",    "{\\colortbl",   "\\ud",
        "\\upr",       "\\f1\\'93", "{\\field", "{\\*\\fldinst", "\\v",           "\\intbl",
        "{\\listtext", "\\uc32767 "};
    const std::size_t at = random() % rtf.size();
    const std::size_t length = random() % 40;
    const auto kind = random() % 5;
    if (kind == 0) {
        rtf[at] = static_cast<char>(random());
    } else if (kind == 1) {
        rtf[at] = "{}\\ 09;*\r\""[random() % 10];
    } else if (kind == 2) {
        rtf.erase(at, length);
    } else if (kind == 3) {
        rtf.insert(random() % rtf.size(), rtf.substr(at, length));
    } else {
        rtf.insert(at, Insertions[random() % std::size(Insertions)]);
    }
}

TEST(RtfDamage, AnyMutationIsReadAndCanBeSaved) {
    std::mt19937 random(1);
    for (int i = 0; i < 20000; ++i) {
        std::string rtf = Rich;
        for (auto n = random() % 8; n < 8 && rtf.size() > 100; ++n) {
            Mutate(rtf, random);
        }
        const MarkedText text =
            ReadBounded("{\\rtf1" + rtf.substr(std::min<std::size_t>(6, rtf.size())));
        const MarkedText saved = ReadBounded(WriteRtf(text));
        ASSERT_TRUE(saved == WithBreaksIn(text)) << "mutation " << i << ":\n" << rtf;
    }
}

std::string Repeated(std::string_view piece, std::size_t count) {
    std::string text;
    while (count-- > 0) {
        text += piece;
    }
    return text;
}

TEST(RtfDamage, HugeMeasuresAreHarmless) {
    constexpr std::size_t Million = 1000000;
    const struct {
        std::string body;
        std::string expected;
    } cases[] = {
        {Repeated("{", Million) + "a" + Repeated("}", Million) + "b", "ab"},
        {Repeated("{\\b", 100000) + " a" + Repeated("}", 100000) + "b", "[b]a[]b"},
        {"a" + Repeated("}", Million), "a"},
        {"a\\bin99999999999 b", "a"},
        {"{\\uc2147483647\\u8364 " + std::string(300, '?') + "}", "\u20AC" + std::string(45, '?')},
        {Repeated("\\trowd\\itap2147483647\\intbl", 1000) + " a\\nestcell\\nestrow", "a"},
        {"\\li2147483647\\fi-2147483648\\fs2147483647\\cf-2147483648 a", "a"},
        {std::string(Million, 'a').insert(0, "\\"), ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Picture(ReadBounded("{\\rtf1 " + c.body)), c.expected) << c.body.substr(0, 60);
    }
}

// A million columns, and rows that each would repeat them.
TEST(RtfDamage, RowsDoNotMultiplyTheirFormat) {
    const std::string rtf = "{\\rtf1\\trowd" + Repeated("\\cellx1", 100000) +
                            Repeated("\\intbl\\cell\\row", 100000) + "}";
    RtfDocument document;
    ASSERT_EQ(ReadRtf(rtf, document), std::nullopt);
    const auto& table = std::get<RtfTable>(document.blocks.at(0).content);
    EXPECT_EQ(table.rows.size(), 100000U);
    EXPECT_EQ(table.rows.back().cells.size(), 1U);
}

}  // namespace
}  // namespace varno
