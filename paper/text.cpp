#include "paper/text.h"

#include <algorithm>
#include <span>

#include "codec/utf8.h"
#include "paper/look.h"

namespace varno {
namespace {

constexpr std::u16string_view Scissors = u"\u2702";

// Without the blanks at the end, unless styles in `showing` make them visible.
std::span<const PaperCell> Inked(const PaperRow& row, unsigned showing) {
    const auto isInked = [&](const PaperCell& cell) {
        return cell.character != u' ' || (cell.styles & showing) != 0;
    };
    const auto end = std::find_if(row.cells.rbegin(), row.cells.rend(), isInked).base();
    return {row.cells.begin(), end};
}

constexpr unsigned Dim = 0x100;  // a terminal's attribute beside those of PaperStyle

unsigned AttributesOf(const PaperCell& cell) {
    const unsigned attributes =
        cell.styles & (PaperStyle::Bold | PaperStyle::Underline | PaperStyle::Inverse);
    return cell.origin == PaperCell::Origin::Sample ? attributes | Dim : attributes;
}

// Switches a terminal to these attributes, from whatever it had.
std::u16string Sequence(unsigned attributes) {
    std::u16string sequence = u"\x1B[0";
    if ((attributes & PaperStyle::Bold) != 0) {
        sequence += u";1";
    }
    if ((attributes & Dim) != 0) {
        sequence += u";2";
    }
    if ((attributes & PaperStyle::Underline) != 0) {
        sequence += u";4";
    }
    if ((attributes & PaperStyle::Inverse) != 0) {
        sequence += u";7";
    }
    return sequence + u"m";
}

class Writer {
  public:
    explicit Writer(bool attributes) : attributes_(attributes) {}

    void WriteRow(const Paper& paper, const PaperRow& row) {
        if (row.kind == PaperRow::Kind::Feed) {
            text_.append(static_cast<std::size_t>(row.feed) - 1, u'\n');
        } else if (row.kind == PaperRow::Kind::Cut) {
            WriteCut(paper.width);
        } else {
            WriteLine(paper, row);
        }
    }

    void EndRow() { text_ += u'\n'; }
    std::string Utf8() const { return ToUtf8(text_); }

  private:
    void WriteCut(int width) {
        text_ += Scissors;
        for (int column = 2; column < width; column += 2) {
            text_ += u" -";
        }
    }

    void WriteLine(const Paper& paper, const PaperRow& row) {
        if (row.cells.empty()) {
            return;
        }
        Blanks(row.indent);
        unsigned attributes = 0;
        int column = row.indent;
        const std::span<const PaperCell> cells =
            Inked(row, attributes_ ? PaperStyle::Underline | PaperStyle::Inverse : 0);
        for (const PaperCell& cell : cells) {
            const int columns = &cell == &cells.back() ? 1 : cell.Columns();
            Switch(attributes, AttributesOf(cell));
            text_ += cell.character;
            Blanks(columns - 1);
            column += columns;
        }
        Switch(attributes, 0);
        if (!row.breaks) {
            return;
        }
        Blanks(paper.width - column);
        text_ += BreakMark;
    }

    void Blanks(int count) { text_.append(static_cast<std::size_t>(std::max(count, 0)), u' '); }

    void Switch(unsigned& from, unsigned to) {
        if (!attributes_ || from == to) {
            return;
        }
        from = to;
        text_ += Sequence(to);
    }

    bool attributes_;
    std::u16string text_;
};

std::string WholeText(const Paper& paper, bool attributes) {
    Writer writer(attributes);
    for (const PaperRow& row : paper.rows) {
        writer.WriteRow(paper, row);
        writer.EndRow();
    }
    return writer.Utf8();
}

}  // namespace

std::string PaperText(const Paper& paper) {
    return WholeText(paper, false);
}

std::string RowText(const Paper& paper, const PaperRow& row) {
    Writer writer(false);
    writer.WriteRow(paper, row);
    return writer.Utf8();
}

std::string TerminalText(const Paper& paper) {
    return WholeText(paper, true);
}

}  // namespace varno
