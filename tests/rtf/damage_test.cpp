// No damage makes the reader crash, hang, or grow beyond what the document's length allows.
#include <gtest/gtest.h>

#include <algorithm>

#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tests/rtf/marked_text_samples.h"

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

TEST(RtfDamage, AnyMutationIsReadAndCanBeSaved) {
    std::mt19937 random(1);
    const auto below = [&](std::size_t n) { return random() % n; };
    for (int i = 0; i < 5000; ++i) {
        std::string rtf = Rich;
        for (auto n = below(9); n > 0; --n) {  // takes out, doubles, replaces, breaks a character
            rtf.replace(6 + below(rtf.size() - 6), below(2) * below(40), Rich, below(Rich.size()),
                        below(2) * below(40));
            rtf[6 + below(rtf.size() - 6)] = "{}\\ 09;*\r\""[below(10)];
        }
        const MarkedText text = ReadBounded(rtf);
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
        {Repeated("{\\b", 100000) + " a" + Repeated("}", 100000) + "b", "{kB}a{k}b"},
        {"a" + Repeated("}", Million), "a"},
        {"a\\bin99999999999 b", "a"},
        {"{\\uc2147483647\\u8364 " + std::string(300, '?') + "}", "\u20AC" + std::string(45, '?')},
        {Repeated("\\trowd\\itap2147483647\\intbl", 1000) + " a\\nestcell\\nestrow", "a"},
        {"\\li2147483647\\fi-2147483648\\fs2147483647\\cf-2147483648 a", "a"},
        {std::string(Million, 'a').insert(0, "\\"), ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(ToPicture(ReadBounded("{\\rtf1 " + c.body)), c.expected) << c.body.substr(0, 60);
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
