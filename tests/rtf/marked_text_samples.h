// Marked text to save, and what is left of it after loading.
#pragma once

#include <random>

#include "tests/codec/picture.h"

namespace varno {

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
