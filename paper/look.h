// How paper is drawn, whatever it is drawn with: which cells are drawn in one piece, and in what
// colours.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "codec/marked_text.h"
#include "paper/paper.h"

namespace varno {

inline constexpr Colour InkColour = 0x000000;
inline constexpr Colour SampleColour = 0xAA5522;   // values that the indicator will replace
inline constexpr Colour UnknownColour = 0x0000AA;  // frames of unknown codes, marks of breaks
inline constexpr Colour NoteColour = 0x666666;     // what is said about the paper

inline constexpr char16_t BreakMark = u'\u21B5';  // behind a line that was too long

// What the colours mean, for those who look at the paper.
inline constexpr std::string_view PaperLegend[] = {"Blue: sample values",
                                                   "Framed: unknown effects"};

// Cells of one look, side by side.
struct PaperRun {
    std::span<const PaperCell> cells;  // not empty
    int column;                        // of the paper, where they begin

    const PaperCell& First() const { return cells.front(); }
    bool Has(unsigned style) const { return (First().styles & style) != 0; }
    bool IsBox() const { return First().origin == PaperCell::Origin::Box; }
    int Columns() const { return static_cast<int>(cells.size()) * First().Columns(); }
    int Lines() const { return Has(PaperStyle::DoubleHeight) ? 2 : 1; }
    Colour Ink() const;           // of the characters: white on inverse cells
    std::u16string Text() const;  // of a box without the brackets, for which its frame stands
};

std::vector<PaperRun> RunsOf(const PaperRow& row);

// How many lines of paper a row takes.
int LinesOf(const PaperRow& row);

}  // namespace varno
