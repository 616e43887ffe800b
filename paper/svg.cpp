#include "paper/svg.h"

#include <algorithm>
#include <span>
#include <string_view>

#include "codec/utf8.h"

namespace varno {
namespace {

// Pixels. A column is as wide as the characters of a usual monospaced font are at this size.
constexpr int FontSize = 20;
constexpr int ColumnWidth = 12;
constexpr int LineHeight = 24;
constexpr int Baseline = 18;  // below the top of a line
constexpr int Edge = 20;      // of paper around what is printed

constexpr std::string_view Legend[] = {"Blue: sample values", "Framed: unknown effects"};

std::string Number(int number) {
    return std::to_string(number);
}

std::string Escaped(std::u16string_view text) {
    std::string escaped;
    for (const char c : ToUtf8(text)) {
        if (c == '&') {
            escaped += "&amp;";
        } else if (c == '<') {
            escaped += "&lt;";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

int LinesOf(const PaperRow& row) {
    if (row.kind == PaperRow::Kind::Feed) {
        return row.feed;
    }
    return row.IsTall() ? 2 : 1;
}

std::string Element(const std::string& name, const std::string& attributes) {
    return "<" + name + " " + attributes + "/>\n";
}

std::string Attribute(const std::string& name, const std::string& value) {
    return name + "=\"" + value + "\" ";
}

std::string Rectangle(int x, int y, int width, int height) {
    return Attribute("x", Number(x)) + Attribute("y", Number(y)) +
           Attribute("width", Number(width)) + Attribute("height", Number(height));
}

std::string Line(int x, int y, int width) {
    return Attribute("x1", Number(x)) + Attribute("x2", Number(x + width)) +
           Attribute("y1", Number(y)) + Attribute("y2", Number(y));
}

// Cells of one look, side by side.
struct Run {
    std::span<const PaperCell> cells;
    int x;       // of their left side
    int bottom;  // of their line

    const PaperCell& First() const { return cells.front(); }
    bool Has(unsigned style) const { return (First().styles & style) != 0; }
    int Width() const { return static_cast<int>(cells.size()) * First().Columns() * ColumnWidth; }
    int Height() const { return Has(PaperStyle::DoubleHeight) ? 2 * LineHeight : LineHeight; }
};

bool Is(const PaperCell& cell, PaperCell::Origin origin) {
    return cell.origin == origin;
}

bool LookAlike(const PaperCell& a, const PaperCell& b) {
    for (const auto origin : {PaperCell::Origin::Sample, PaperCell::Origin::Box}) {
        if (Is(a, origin) != Is(b, origin)) {
            return false;
        }
    }
    return a.styles == b.styles && (!Is(a, PaperCell::Origin::Box) || a.index == b.index);
}

std::string ColourOf(const Run& run) {
    if (run.Has(PaperStyle::Inverse)) {
        return "white";
    }
    return Is(run.First(), PaperCell::Origin::Sample) ? "#2255aa" : "black";
}

// Every character gets its place, so that the columns hold with any font.
std::string Characters(const Run& run) {
    std::u16string text;
    std::string places;
    for (const PaperCell& cell : run.cells) {
        places += Number(static_cast<int>(text.size()) * ColumnWidth) + " ";
        text += cell.character;
    }
    if (Is(run.First(), PaperCell::Origin::Box)) {
        // its frame stands for the brackets
        std::replace_if(
            text.begin(), text.end(), [](char16_t c) { return c == u'[' || c == u']'; }, u' ');
    }
    const int lines = run.Has(PaperStyle::DoubleHeight) ? 2 : 1;
    const std::string transform =
        "translate(" + Number(run.x) + "," + Number(run.bottom - lines * (LineHeight - Baseline)) +
        ") scale(" + Number(run.First().Columns()) + "," + Number(lines) + ")";
    return "<text " + Attribute("transform", transform) + Attribute("x", places) +
           Attribute("fill", ColourOf(run)) +
           (run.Has(PaperStyle::Bold) ? Attribute("font-weight", "bold") : "") + ">" +
           Escaped(text) + "</text>\n";
}

std::string Picture(const Run& run) {
    const int top = run.bottom - run.Height();
    std::string picture;
    if (run.Has(PaperStyle::Inverse)) {
        picture += Element("rect", Rectangle(run.x, top, run.Width(), run.Height()));
    }
    if (Is(run.First(), PaperCell::Origin::Box)) {
        picture += Element("rect", Rectangle(run.x + 3, top + 2, run.Width() - 6, LineHeight - 4) +
                                       Attribute("fill", "none") + Attribute("stroke", "#aa0000"));
    }
    picture += Characters(run);
    if (run.Has(PaperStyle::Underline)) {
        picture += Element(
            "line", Line(run.x, run.bottom - 2, run.Width()) + Attribute("stroke", ColourOf(run)));
    }
    return picture;
}

std::string Picture(const PaperRow& row, int bottom) {
    std::string picture;
    int x = Edge + row.indent * ColumnWidth;
    for (std::size_t begin = 0, end = 0; begin < row.cells.size(); begin = end) {
        while (end < row.cells.size() && LookAlike(row.cells[begin], row.cells[end])) {
            ++end;
        }
        const Run run = {std::span(row.cells).subspan(begin, end - begin), x, bottom};
        picture += Picture(run);
        x += run.Width();
    }
    return picture;
}

std::string Note(int x, int y, std::string_view text, const std::string& look) {
    return "<text " + Attribute("x", Number(x)) + Attribute("y", Number(y)) + look + ">" +
           std::string(text) + "</text>\n";
}

}  // namespace

std::string PaperSvg(const Paper& paper) {
    const int width = paper.width * ColumnWidth;
    std::string rows;
    int y = Edge;
    for (const PaperRow& row : paper.rows) {
        y += LinesOf(row) * LineHeight;
        rows += Picture(row, y);
        if (row.kind == PaperRow::Kind::Cut) {
            rows += Element("line", Line(0, y - LineHeight / 2, width + 2 * Edge) +
                                        Attribute("stroke", "black") +
                                        Attribute("stroke-dasharray", "8 6"));
        }
        if (row.breaks) {
            rows += Note(Edge + width + 2, y - LineHeight + Baseline, "\u21B5",
                         Attribute("fill", "#aa0000"));
        }
    }
    y += Edge;
    for (const std::string_view line : Legend) {
        rows += Note(4, y, line, Attribute("font-size", "10") + Attribute("fill", "#666666"));
        y += Edge;
    }
    const std::string size =
        Attribute("width", Number(width + 2 * Edge)) + Attribute("height", Number(y));
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" xml:space=\"preserve\" " + size +
           Attribute("font-family", "monospace") + Attribute("font-size", Number(FontSize)) +
           ">\n" + Element("rect", size + Attribute("fill", "white")) + rows + "</svg>\n";
}

}  // namespace varno
