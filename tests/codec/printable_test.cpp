// What becomes of text from other programs, as pictures.
#include "codec/printable.h"

#include <gtest/gtest.h>

#include <map>

#include "tests/codec/picture.h"

namespace varno {
namespace {

std::u16string Decomposed(char32_t c) {
    static const std::map<char32_t, std::u16string> rows{
        {0xFB01, u"fi"}, {0x0107, u"c\u0301"}, {0x2260, u"=\u0338"}, {0x2153, u"1\u20443"},
        {0xFF21, u"A"},  {0x1F150, u"N"},      {0x338F, u"kg"},      {0x2105, u"c/\u65E5"}};
    const auto found = rows.find(c);
    return found != rows.end() ? found->second : std::u16string(1, static_cast<char16_t>(c));
}

TEST(Printable, DoesWhatThePicturesShow) {
    const std::pair<const char*, const char*> rows[] = {
        // Line ends and blanks.
        {"a b\n\ncd\n", "a÷b¬\n¬\ncd¬\n"},
        {"a¬\nb÷c¬\n", "a¬\nb÷c¬\n"},
        {"a¬b¬", "a¬\nb¬\n"},
        {"a\u2028b\u2029c\vd\u0085e", "a¬\nb¬\nc¬\nd¬\ne"},
        {"\t\u00A0\u2009\u3000", "÷÷÷÷"},
        // The lines of a ticket's codes and comments keep their bare line breaks.
        {"a\n{r}C005{g} LINE FEED{k}\n{b}P012{k}\nb\n",
         "a\n{r}C005{g} LINE FEED{k}\n{b}P012{k}\nb¬\n"},
        {"{g}two words\n\n{k}b", "{g}two words\n\n{k}b"},
        {"a {r}Caution{k}\n{x}grey{k}\nb", "a÷{r}Caution{k}¬\n{x}grey{k}\nb"},
        {"{kB}a\nb", "{kB}a{k}¬{kB}\nb"},
        {"{g}\u65E5¬ b{m}A\u65E5", "{g}\u65E5¬ b{m}A\u65E5"},
        // Characters: as they are, in another form, or not at all.
        {"é€“–”…½ÿ~?", "é€“–”…½ÿ~?"},
        {"ﬁć⅓Ａ🅐㎏ł−′″‐μẞ≤",
         "fic1/3AN"
         "kgl-'\"-µSS<="},
        {"ĐđĦħıŁŦŧʹʻʼ‑‒―‛‟⁃⁄∕∗∙∶∼≥⋅●", "DdHhiLTt'‘’-–—‘“-//*·:~>=·•"},
        {"日😀≠℅\uFFFD", "?????"},
        {"a\u200B\u00AD\uFE0F\u0301\x01\x7F\uFFFCb", "ab"},
    };
    for (const auto& [before, after] : rows) {
        EXPECT_EQ(ToPicture(Printable(FromPicture(before), Decomposed)), after) << before;
    }
}

}  // namespace
}  // namespace varno
