#include "paper/paper.h"

#include <algorithm>

namespace varno {

bool PaperRow::IsTall() const {
    return std::any_of(cells.begin(), cells.end(), [](const PaperCell& cell) {
        return (cell.styles & PaperStyle::DoubleHeight) != 0;
    });
}

void Append(Paper& roll, const Paper& paper) {
    roll.width = paper.width;
    roll.rows.insert(roll.rows.end(), paper.rows.begin(), paper.rows.end());
    roll.words = paper.words;
    roll.stylesLeft = paper.stylesLeft;
}

PaperPlace PlaceOf(const Paper& paper, std::size_t index) {
    auto row = std::partition_point(paper.rows.begin(), paper.rows.end(),
                                    [&](const PaperRow& each) { return each.end < index; });
    for (; row != paper.rows.end(); ++row) {
        PaperPlace place = {static_cast<std::size_t>(row - paper.rows.begin()), row->indent};
        for (const PaperCell& cell : row->cells) {
            if (cell.index >= index) {
                return place;
            }
            place.column += cell.Columns();
        }
        if (!row->breaks) {
            return place;
        }
    }
    return {paper.rows.size(), 0};
}

std::size_t WordAt(const Paper& paper, PaperPlace place) {
    if (place.row >= paper.rows.size()) {
        return paper.words;
    }
    const PaperRow& row = paper.rows[place.row];
    if (place.column < row.indent) {
        return row.begin;
    }
    int column = row.indent;
    for (const PaperCell& cell : row.cells) {
        column += cell.Columns();
        if (place.column < column) {
            return cell.index;
        }
    }
    return row.end;
}

}  // namespace varno
