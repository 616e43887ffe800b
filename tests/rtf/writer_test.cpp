#include <gtest/gtest.h>

#include <array>

#include "platform/rtf/rtf_reader.h"
#include "platform/rtf/rtf_writer.h"
#include "tests/rtf/marked_text_samples.h"

namespace varno {
namespace {

MarkedText Read(const std::string& rtf) {
    MarkedText text;
    EXPECT_EQ(LoadMarkedText(rtf, text), std::nullopt);
    return text;
}

// The part behind the head, which ends with the font size.
std::string Body(const MarkedText& text) {
    const std::string rtf = WriteRtf(text);
    return rtf.substr(rtf.find("\\fs20") + 5);
}

TEST(RtfWriter, WritesWhatOtherReadersKnow) {
    MarkedText text;
    text.Append(u"a\u00F7\u00AC\r\n", {});
    text.Append(u"C005", {ControlCodeColour, true});
    text.Append(u"{\\}\t\u20AC\xE4", {CommentColour});
    EXPECT_EQ(Body(text),
              "\\cf1 a\\'f7\\'ac\\par\r\n"
              "\\cf3\\b C005\\cf5\\b0\\{\\\\\\}\\tab\\u8364?\\u228?\\par\r\n}\r\n");
    EXPECT_EQ(WriteRtf(text).substr(0, WriteRtf(text).find("\\fs20")),
              "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\fmodern\\fcharset0 Courier;}}\r\n"
              "{\\colortbl ;\\red0\\green0\\blue0;\\red255\\green0\\blue255;\\red255\\green0"
              "\\blue0;\\red0\\green0\\blue255;\\red0\\green160\\blue0;}\r\n"
              "\\viewkind4\\uc1\\pard\\f0");
}

TEST(RtfWriter, SavingAndLoadingDoesNotGrowTheText) {
    for (const std::u16string_view written : {u"", u"\r\n", u"a", u"a\r\n", u"a\r\n\r\n"}) {
        MarkedText text;
        text.Append(written, {PrintCodeColour});
        for (int i = 0; i < 3; ++i) {
            text = Read(WriteRtf(text));
        }
        EXPECT_EQ(text.Text(), written);
    }
}

TEST(RtfWriter, KeepsEveryUnit) {
    MarkedText text;
    for (unsigned unit = 0; unit <= 0xFFFF; ++unit) {
        text.Append(std::u16string(1, static_cast<char16_t>(unit)),
                    {unit % 3 == 0 ? TextColour : unit << 3});
    }
    EXPECT_TRUE(Read(WriteRtf(text)) == text);
}

TEST(RtfWriter, KeepsAnyText) {
    constexpr std::array Pieces = {
        u"a", u" ",    u"  ",   u"\r\n",     u"\r",         u"\n",     u"\t",    u"\\", u"{",
        u"}", u"\xAC", u"\xF7", u"\u2028",   u"\U0001F600", u"\xDC00", u"0",     u"-1", u"'80",
        u"?", u"\x1B", u"\xA0", u"C005 NET", u"*",          u";",      u"\u65E5"};
    std::mt19937 random(20);
    for (int i = 0; i < 2000; ++i) {
        const MarkedText text = RandomText(random, Pieces, static_cast<int>(random() % 60));
        const MarkedText expected = WithBreaksIn(text);
        const MarkedText read = Read(WriteRtf(text));
        ASSERT_EQ(ToPicture(read), ToPicture(expected)) << "text " << i << "\n" << WriteRtf(text);
        ASSERT_TRUE(read == expected);
    }
}

}  // namespace
}  // namespace varno
