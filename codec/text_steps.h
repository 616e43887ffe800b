// How far a key goes in marked text when it goes further than one character. A line end, that is
// the marker and the line break behind it, is one piece, and so is a line break by itself.
#pragma once

#include <cstddef>

#include "codec/marked_text.h"

namespace varno {

// Positions count UTF-16 units; 0 is in front of the first. From the end, or from the start
// backwards, a step goes nowhere.
using TextStep = std::size_t (*)(const MarkedText& text, std::size_t from);

std::size_t NextCharacter(const MarkedText& text, std::size_t from);
std::size_t PreviousCharacter(const MarkedText& text, std::size_t from);

// To where a word begins. A word ends at blanks and space markers, which are passed with it, and
// without them where the colour changes or the line ends.
std::size_t NextWord(const MarkedText& text, std::size_t from);
std::size_t PreviousWord(const MarkedText& text, std::size_t from);

// To the end of the line's text; from there over the line end.
std::size_t RestOfLine(const MarkedText& text, std::size_t from);

// The word that a place is in or at the end of: letters and digits, signs, or blanks, of one
// colour. Empty in an empty line.
struct TextRange {
    std::size_t start = 0;
    std::size_t end = 0;
};
TextRange WordAt(const MarkedText& text, std::size_t position);

}  // namespace varno
