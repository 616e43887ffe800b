// What codes do to the paper. It is data of an installation, read from a text file; a code that is
// not in it has an unknown effect.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "codec/word.h"

namespace varno {

inline constexpr int MinPaperWidth = 8;  // columns
inline constexpr int MaxPaperWidth = 255;
inline constexpr int DefaultPaperWidth = 40;
inline constexpr int MaxFeed = 99;        // lines
inline constexpr int MaxValueWidth = 99;  // columns

// How a character is printed; any of them together.
struct PaperStyle {
    enum : unsigned {
        Bold = 1,
        DoubleWidth = 2,
        DoubleHeight = 4,
        Underline = 8,
        Inverse = 16,
    };
};

struct StyleName {
    unsigned style;
    std::string_view name;
};
inline constexpr StyleName StyleNames[] = {{PaperStyle::Bold, "bold"},
                                           {PaperStyle::DoubleWidth, "double width"},
                                           {PaperStyle::DoubleHeight, "double height"},
                                           {PaperStyle::Underline, "underline"},
                                           {PaperStyle::Inverse, "inverse"}};

enum class Side { Left, Centre, Right };

struct Effect {
    enum class Kind { Nothing, StyleOn, StyleOff, Align, Margin, Tab, Feed, Cut, Reset };
    Kind kind = Kind::Nothing;
    // The style, the side, the margin in columns, the column (from 1) that a tab leads to, or
    // the lines of a feed.
    int argument = 0;

    bool operator==(const Effect&) const = default;
};

// What a code does, as a sentence ends: "feeds 2 lines, switches bold on".
std::string InWords(const std::vector<Effect>& effects);

// What stands on the paper in place of a print code. Only the indicator knows the value.
struct SampleValue {
    std::u16string text;  // printed characters only
    int width = 0;        // columns that it is filled up to; 0: as wide as the text
    Side side = Side::Right;

    std::u16string Filled() const;
};

struct Effects {
    int paperWidth = DefaultPaperWidth;         // columns
    Side side = Side::Left;                     // at the start and after a reset
    std::map<Word, std::vector<Effect>> codes;  // of control codes and ASCII codes
    std::map<Word, SampleValue> values;         // of print codes
};

}  // namespace varno
