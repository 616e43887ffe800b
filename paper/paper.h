// A ticket as it is printed: rows of cells, with feeds and cuts between them.
#pragma once

#include <cstddef>
#include <vector>

#include "codec/word.h"
#include "paper/effects.h"

namespace varno {

// One printed character. Its columns are those of the paper: two in double width.
struct PaperCell {
    enum class Origin : unsigned char {
        Text,
        AsciiCode,  // outside of 32 to 126, such as 233 for "é"
        Tab,        // a blank on the way to its column
        Sample,     // of a print code: what the indicator will print there is not known
        Box,        // of the name in brackets of a code whose effect is unknown
    };

    char16_t character;
    Word word;          // that it was printed for: a print code, for a sample
    std::size_t index;  // of that word in the body
    unsigned styles;    // of PaperStyle
    Origin origin;

    int Columns() const { return (styles & PaperStyle::DoubleWidth) != 0 ? 2 : 1; }
    bool operator==(const PaperCell&) const = default;
};

struct PaperRow {
    enum class Kind : unsigned char { Line, Feed, Cut };

    Kind kind = Kind::Line;
    bool breaks = false;           // too long for the paper: it goes on in the next row
    int indent = 0;                // columns of the paper in front of the cells
    int columns = 0;               // that the cells take
    int feed = 0;                  // blank lines, of a feed
    std::size_t begin = 0;         // index of the first word that belongs to the row
    std::size_t end = 0;           // and of the word that ended it, or that broke it
    std::vector<PaperCell> cells;  // of a line

    bool IsTall() const;  // two lines high: holds a cell in double height
};

struct Paper {
    int width = 0;  // columns
    std::vector<PaperRow> rows;
    std::size_t words = 0;    // of the body
    unsigned stylesLeft = 0;  // switched on and never off
};

// Prints on where `roll` ends.
void Append(Paper& roll, const Paper& paper);

// A row and a column from 0. Behind the last row and behind its cells are places too.
struct PaperPlace {
    std::size_t row;
    int column;

    bool operator==(const PaperPlace&) const = default;
};

// Where the word at `index` of the body is printed, or would be if it printed anything.
PaperPlace PlaceOf(const Paper& paper, std::size_t index);

// The index of the word that printed at `place`. In front of the cells the first word of the row;
// behind them the word that ended it; behind the last row the number of words.
std::size_t WordAt(const Paper& paper, PaperPlace place);

}  // namespace varno
