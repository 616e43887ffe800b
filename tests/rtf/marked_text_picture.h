// Marked text as one line that a person can read, so that a failed comparison shows itself.
#pragma once

#include <cstdio>
#include <random>
#include <string>
#include <string_view>

#include "codec/marked_text.h"
#include "codec/utf8.h"

namespace varno {

// "[ff0000 b]C005[]abc|def": before each change the colour as RRGGBB and the letters of the styles,
// nothing for plain black; "|" is CR LF, "<9>" a control character, "<d800>" a lone surrogate.
inline std::string FormatName(const CharFormat& format) {
    if (format == CharFormat{}) {
        return "[]";
    }
    char colour[16];
    const Colour c = format.colour;
    std::snprintf(colour, sizeof colour, "%02x%02x%02x", c & 0xFF, (c >> 8) & 0xFF,
                  (c >> 16) & 0xFF);
    std::string name = c == TextColour ? "[" : "[" + std::string(colour);
    const std::string styles = std::string(format.bold ? "b" : "") + (format.italic ? "i" : "") +
                               (format.underline ? "u" : "") + (format.strikeThrough ? "s" : "");
    name += styles.empty() || name == "[" ? styles : " " + styles;
    return name + "]";
}

inline bool IsSurrogate(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDFFF;
}

inline std::string Picture(const MarkedText& text) {
    std::string picture;
    CharFormat format;
    const std::u16string& units = text.Text();
    for (std::size_t i = 0; i < units.size(); ++i) {
        if (!(text.FormatAt(i) == format)) {
            format = text.FormatAt(i);
            picture += FormatName(format);
        }
        const bool pair = (units[i] & 0xFC00) == 0xD800 && i + 1 < units.size() &&
                          (units[i + 1] & 0xFC00) == 0xDC00;
        char code[16];
        std::snprintf(code, sizeof code, "<%x>", units[i]);
        if (units.compare(i, 2, LineBreak) == 0) {
            picture += '|';
            ++i;
        } else if (units[i] < u' ' || units[i] == 0x7F || (IsSurrogate(units[i]) && !pair)) {
            picture += code;
        } else {
            picture += ToUtf8(std::u16string_view(units).substr(i, pair ? 2 : 1));
            i += pair ? 1 : 0;
        }
    }
    return picture;
}

// A line break has one format. `format`: which; absent: that of its CR.
inline MarkedText WithBreaksIn(const MarkedText& text, const CharFormat* format = nullptr) {
    MarkedText result;
    for (std::size_t i = 0; i < text.Length(); ++i) {
        if (text.Text().compare(i, 2, LineBreak) == 0) {
            result.Append(LineBreak, format != nullptr ? *format : text.FormatAt(i));
            ++i;
        } else {
            result.Append(text.Text().substr(i, 1), text.FormatAt(i));
        }
    }
    return result;
}

// Random runs of the pieces, in the colours of tickets and one other, and in all styles.
template <class Pieces>
MarkedText RandomText(std::mt19937& random, const Pieces& pieces, int count) {
    constexpr Colour Colours[] = {TextColour,      AsciiCodeColour, ControlCodeColour,
                                  PrintCodeColour, CommentColour,   0x123456};
    MarkedText text;
    CharFormat format;
    for (int i = 0; i < count; ++i) {
        const auto dice = random();
        if (dice % 4 == 0) {
            format = {Colours[(dice >> 4) % std::size(Colours)], (dice >> 10 & 1) != 0,
                      (dice >> 11 & 1) != 0, (dice >> 12 & 1) != 0, (dice >> 13 & 1) != 0};
        }
        text.Append(pieces[random() % std::size(pieces)], format);
    }
    return text;
}

}  // namespace varno
