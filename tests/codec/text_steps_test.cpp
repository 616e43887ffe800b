// Where the keys that go further than a character stop, as pictures: "|" at each stop.
#include "codec/text_steps.h"

#include <gtest/gtest.h>

#include "tests/codec/picture.h"

namespace varno {
namespace {

std::string Stops(const char* picture, TextStep step, bool forward) {
    MarkedText text = FromPicture(picture);
    std::vector<std::size_t> stops;
    for (std::size_t at = forward ? 0 : text.Length();;) {
        const std::size_t next = step(text, at);
        if (next == at) {
            break;
        }
        stops.insert(forward ? stops.begin() : stops.end(), at = next);
    }
    for (const std::size_t at : stops) {
        text.Insert(at, u"|", text.FormatAt(at > 0 ? at - 1 : 0));
    }
    return ToPicture(text);
}

TEST(TextSteps, StopWhereThePicturesShow) {
    struct Row {
        const char* text;
        const char* next;
        const char* previous;
    };
    const Row words[] = {
        {"", "", ""},
        {"Net÷÷5 kg", "Net÷÷|5 |kg|", "|Net÷÷|5 |kg"},
        {"0:A@Z[a`z", "0|:|A|@|Z|[|a|`|z|", "|0|:|A|@|Z|[|a|`|z"},
        {"a‐é⁰…×¿À", "a|‐|é⁰|…×¿|À|", "|a|‐|é⁰|…×¿|À"},
        {"a÷¬\n÷b", "a÷|¬\n|÷|b|", "|a÷|¬\n|÷|b"},
        {"ab¬\n¬\n\ncd", "ab|¬\n|¬\n|\n|cd|", "|ab|¬\n|¬\n|\n|cd"},
        {"x{r}C005{g} NET W{k}\ny", "x|{r}C005|{g} |NET |W|{k}\n|y|",
         "|x|{r}C005|{g} |NET |W|{k}\n|y"},
        {"÷{m}A27{g} {k}÷é.5¬x", "÷|{m}A27|{g} |{k}÷|é|.|5|¬|x|", "|÷|{m}A27|{g} |{k}÷|é|.|5|¬|x"},
    };
    for (const Row& row : words) {
        EXPECT_EQ(Stops(row.text, NextWord, true), row.next);
        EXPECT_EQ(Stops(row.text, PreviousWord, false), row.previous);
    }
    const char* characters = "a¬\n\n😀¬b";
    EXPECT_EQ(Stops(characters, NextCharacter, true), "a|¬\n|\n|😀|¬|b|");
    EXPECT_EQ(Stops(characters, PreviousCharacter, false), "|a|¬\n|\n|😀|¬|b");
    EXPECT_EQ(Stops("ab¬c¬\n\nd", RestOfLine, true), "ab¬c|¬\n|\n|d|");
}

}  // namespace
}  // namespace varno
