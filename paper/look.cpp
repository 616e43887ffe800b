#include "paper/look.h"

#include <algorithm>

namespace varno {
namespace {

constexpr Colour White = 0xFFFFFF;

bool LookAlike(const PaperCell& a, const PaperCell& b) {
    for (const auto origin : {PaperCell::Origin::Sample, PaperCell::Origin::Box}) {
        if ((a.origin == origin) != (b.origin == origin)) {
            return false;
        }
    }
    return a.styles == b.styles && (a.origin != PaperCell::Origin::Box || a.index == b.index);
}

bool IsBracket(char16_t character) {
    return character == u'[' || character == u']';
}

}  // namespace

Colour PaperRun::Ink() const {
    if (Has(PaperStyle::Inverse)) {
        return White;
    }
    return First().origin == PaperCell::Origin::Sample ? SampleColour : InkColour;
}

std::u16string PaperRun::Text() const {
    std::u16string text;
    for (const PaperCell& cell : cells) {
        text += cell.character;
    }
    if (IsBox()) {
        std::replace_if(text.begin(), text.end(), IsBracket, u' ');
    }
    return text;
}

std::vector<PaperRun> RunsOf(const PaperRow& row) {
    std::vector<PaperRun> runs;
    int column = row.indent;
    for (std::size_t begin = 0, end = 0; begin < row.cells.size(); begin = end) {
        while (end < row.cells.size() && LookAlike(row.cells[begin], row.cells[end])) {
            ++end;
        }
        runs.push_back({std::span(row.cells).subspan(begin, end - begin), column});
        column += runs.back().Columns();
    }
    return runs;
}

int LinesOf(const PaperRow& row) {
    if (row.kind == PaperRow::Kind::Feed) {
        return row.feed;
    }
    return row.IsTall() ? 2 : 1;
}

}  // namespace varno
