// Words, the ASCII table, Windows-1252 and UTF-8.
#include <gtest/gtest.h>

#include "codec/ascii_table.h"
#include "codec/utf8.h"
#include "codec/windows1252.h"
#include "codec/word.h"

namespace varno {
namespace {

TEST(Word, EveryWordReadsBackInEitherCase) {
    for (unsigned word = 0; word <= 0xFFFF; ++word) {
        std::string hex = WordHex(static_cast<Word>(word));
        ASSERT_EQ(HexAt(hex, 0, 4), word);
        for (char& c : hex) {
            c = static_cast<char>(std::tolower(c));
        }
        ASSERT_EQ(HexAt(hex, 0, 4), word);
    }
    EXPECT_EQ(WordHex(0x08D4), "08D4");
}

TEST(Word, DamagedDigitsCountAsZero) {
    EXPECT_EQ(HexAt("1G3", 0, 4), 0x1030U);
    EXPECT_EQ(HexAt("\xFFg1:a", 0, 5), 0x0010AU);
    EXPECT_EQ(HexAt("12", 99, 2), 0U);
}

TEST(AsciiTable, RowsStandInFixedColumns) {
    const auto rows = AsciiTable();
    EXPECT_EQ(rows[0], "  0   00  00000000  ^@  NU");
    EXPECT_EQ(rows[10], " 10   0A  00001010  ^J  LF");
    EXPECT_EQ(rows[31], " 31   1F  00011111  ^_  US");
    std::string names;
    for (const auto& row : rows) {
        names += row.substr(24) + ' ';
    }
    EXPECT_EQ(names,
              "NU SO ST ET EO EN AC BE BS HT LF VT FF CR SO SI "
              "DL DC DC DC DC NA SY ET CA EM EO ES FS GS RS US ");
}

TEST(Windows1252, KnowsItsCharacters) {
    for (unsigned code = 0; code < 256; ++code) {
        EXPECT_EQ(ToWindows1252(FromWindows1252(static_cast<unsigned char>(code))), code);
    }
    EXPECT_EQ(
        ToUtf8(FromWindows1252("\x80\x81\x82\x83\x84\x85\x86\x87\x88\x89\x8A\x8B\x8C\x8D\x8E\x8F"
                               "\x90\x91\x92\x93\x94\x95\x96\x97\x98\x99\x9A\x9B\x9C\x9D\x9E\x9F"
                               "\xE9")),
        "€\u0081‚ƒ„…†‡ˆ‰Š‹Œ\u008DŽ\u008F\u0090‘’“”•–—˜™š›œ\u009DžŸé");
    const char16_t others[] = {0x80, 0x99, 0x100, 0x416, 0x20AD, 0xD83D, 0xFFFD};
    for (const char16_t outside : others) {
        EXPECT_EQ(ToWindows1252(outside), '?') << int{outside};
    }
}

TEST(Windows1252, UpperCasesItsLetters) {
    std::u16string text = u"az{`09AZàé÷þÿßµšœžƒ";
    for (char16_t& c : text) {
        c = UpperCase(c);
    }
    EXPECT_EQ(ToUtf8(text), "AZ{`09AZÀÉ÷ÞŸßµŠŒŽƒ");
}

TEST(Utf8, GoesBothWaysAndReplacesWhatIsNone) {
    for (unsigned point = 0; point < 0x110000; ++point) {
        if (point >= 0xD800 && point <= 0xDFFF) {
            continue;
        }
        std::u16string units = {static_cast<char16_t>(point)};
        if (point > 0xFFFF) {
            units = {static_cast<char16_t>(0xD800 + (point - 0x10000) / 0x400),
                     static_cast<char16_t>(0xDC00 + point % 0x400)};
        }
        ASSERT_EQ(FromUtf8(ToUtf8(units)), units) << point;
    }
    const std::u16string text = u"a\u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF";
    const std::string bytes =
        "a\x7F\xC2\x80\xDF\xBF\xE0\xA0\x80\xEF\xBF\xBF\xF0\x90\x80\x80\xF4\x8F\xBF\xBF";
    EXPECT_EQ(ToUtf8(text), bytes);
    EXPECT_EQ(FromUtf8(bytes), text);
    EXPECT_EQ(ToUtf8(std::u16string{u'a', 0xD800, u'g', 0xDC00}), "a\xEF\xBF\xBDg\xEF\xBF\xBD");
    EXPECT_EQ(FromUtf8(std::string_view("a\x80g\xE2\x82\xAC").substr(0, 5)),
              u"a\uFFFDg\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xE0\x9F\xBF"), u"\uFFFD\uFFFD\uFFFD");  // longer than need be
    EXPECT_EQ(FromUtf8("\xED\xA0\x80"), u"\uFFFD\uFFFD\uFFFD");  // half a pair
    EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), u"\uFFFD\uFFFD\uFFFD\uFFFD");
}

}  // namespace
}  // namespace varno
