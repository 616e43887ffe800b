#include "paper/svg.h"

#include <array>
#include <cstdio>
#include <string_view>

#include "codec/utf8.h"
#include "paper/look.h"

namespace varno {
namespace {

// Pixels. A column is as wide as the characters of a usual monospaced font are at this size.
constexpr int FontSize = 20;
constexpr int ColumnWidth = 12;
constexpr int LineHeight = 24;
constexpr int Baseline = 18;  // below the top of a line
constexpr int Edge = 20;      // of paper around what is printed

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

std::string Html(Colour colour) {
    std::array<char, 8> text{};
    std::snprintf(text.data(), text.size(), "#%02x%02x%02x", colour & 0xFF, colour >> 8 & 0xFF,
                  colour >> 16 & 0xFF);
    return text.data();
}

std::string Line(int x, int y, int width) {
    return Attribute("x1", Number(x)) + Attribute("x2", Number(x + width)) +
           Attribute("y1", Number(y)) + Attribute("y2", Number(y));
}

std::string Fill(Colour colour) {
    return Attribute("fill", Html(colour));
}

std::string Stroke(Colour colour) {
    return Attribute("stroke", Html(colour));
}

// Every character gets its place, so that the columns hold with any font.
std::string Characters(const PaperRun& run, int x, int bottom) {
    std::string places;
    for (std::size_t i = 0; i < run.cells.size(); ++i) {
        places += Number(static_cast<int>(i) * ColumnWidth) + " ";
    }
    const std::string transform =
        "translate(" + Number(x) + "," + Number(bottom - run.Lines() * (LineHeight - Baseline)) +
        ") scale(" + Number(run.First().Columns()) + "," + Number(run.Lines()) + ")";
    return "<text " + Attribute("transform", transform) + Attribute("x", places) + Fill(run.Ink()) +
           (run.Has(PaperStyle::Bold) ? Attribute("font-weight", "bold") : "") + ">" +
           Escaped(run.Text()) + "</text>\n";
}

std::string Picture(const PaperRun& run, int bottom) {
    const int x = Edge + run.column * ColumnWidth;
    const int width = run.Columns() * ColumnWidth;
    const int height = run.Lines() * LineHeight;
    const int top = bottom - height;
    std::string picture;
    if (run.Has(PaperStyle::Inverse)) {
        picture += Element("rect", Rectangle(x, top, width, height));
    }
    if (run.IsBox()) {
        picture += Element("rect", Rectangle(x + 3, top + 2, width - 6, LineHeight - 4) +
                                       Attribute("fill", "none") + Stroke(UnknownColour));
    }
    picture += Characters(run, x, bottom);
    if (run.Has(PaperStyle::Underline)) {
        picture += Element("line", Line(x, bottom - 2, width) + Stroke(run.Ink()));
    }
    return picture;
}

std::string Picture(const PaperRow& row, int bottom) {
    std::string picture;
    for (const PaperRun& run : RunsOf(row)) {
        picture += Picture(run, bottom);
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
            rows += Note(Edge + width + 2, y - LineHeight + Baseline, ToUtf8({&BreakMark, 1}),
                         Fill(UnknownColour));
        }
    }
    y += Edge;
    for (const std::string_view line : PaperLegend) {
        rows += Note(4, y, line, Attribute("font-size", "10") + Fill(NoteColour));
        y += Edge;
    }
    const std::string size =
        Attribute("width", Number(width + 2 * Edge)) + Attribute("height", Number(y));
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" xml:space=\"preserve\" " + size +
           Attribute("font-family", "monospace") + Attribute("font-size", Number(FontSize)) +
           ">\n" + Element("rect", size + Attribute("fill", "white")) + rows + "</svg>\n";
}

}  // namespace varno
