// A rich-text document as its reader understood it, free of any toolkit: what a viewer lays out and
// what marked text is taken from. Measures are twips (1/1440 inch), font sizes half points.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "codec/marked_text.h"

namespace varno {

enum class RtfAlignment : std::uint8_t { Left, Centre, Right, Justify };
enum class RtfScript : std::uint8_t { Normal, Superscript, Subscript };

struct RtfStyle {
    std::optional<Colour> colour;      // absent: automatic, black on white paper
    std::optional<Colour> background;  // absent: none
    bool bold = false;
    bool italic = false;
    bool underline = false;  // of any kind
    bool strikeThrough = false;
    RtfScript script = RtfScript::Normal;
    int font = -1;        // index into RtfDocument::fonts; -1: the viewer's own
    int halfPoints = 24;  // 2 to 3276
    int link = -1;        // index into RtfDocument::links; -1: no link

    bool operator==(const RtfStyle&) const = default;
};

// Characters of one style, or one picture.
struct RtfRun {
    RtfStyle style;
    // A line break within the paragraph is CR LF. Any other character stands for itself, tabs and
    // control characters included; surrogates may be unpaired in a damaged document.
    std::u16string text;
    int picture = -1;  // index into RtfDocument::pictures, text is then empty; -1: no picture
};

struct RtfParagraphFormat {
    RtfAlignment alignment = RtfAlignment::Left;
    int leftIndent = 0;
    int rightIndent = 0;
    int firstIndent = 0;  // added to leftIndent in the first line; negative: hangs out
    int spaceBefore = 0;
    int spaceAfter = 0;
    std::optional<Colour> background;
    int heading = 0;  // its level, from 1; 0 for none

    bool operator==(const RtfParagraphFormat&) const = default;
};

struct RtfParagraph {
    RtfParagraphFormat format;
    // The bullet or number of a list item as the document spells it ("1.", U+2022), without the
    // tab behind it. Empty: no list item. It is no part of the text.
    std::vector<RtfRun> label;
    std::vector<RtfRun> runs;
    RtfStyle mark;  // of the paragraph's end; an empty paragraph is as high as this font
};

struct RtfBlock;

struct RtfCell {
    std::vector<RtfBlock> blocks;
    int rightEdge = 0;  // from where the row's indents are measured; 0: not given
    std::optional<Colour> background;
    bool joinsPrevious = false;  // merged into the cell on its left
};

struct RtfRow {
    std::vector<RtfCell> cells;  // never empty
    int leftEdge = 0;
    int gap = 0;  // half of the space between two cells' texts
    bool bordered = false;
};

struct RtfTable {
    std::vector<RtfRow> rows;  // never empty
};

struct RtfBlock {
    std::variant<RtfParagraph, RtfTable> content;
};

enum class RtfFontFamily : std::uint8_t { Any, Serif, SansSerif, FixedPitch, Script, Decorative };

struct RtfFont {
    std::u16string name;                        // may be empty
    RtfFontFamily family = RtfFontFamily::Any;  // what to take when there is none of this name
};

enum class RtfPictureKind : std::uint8_t { Unknown, Png, Jpeg };

struct RtfPicture {
    RtfPictureKind kind = RtfPictureKind::Unknown;
    std::string bytes;  // the picture file as it stands, unchecked
    int width = 0;      // on paper; 0: as the picture itself says
    int height = 0;
};

struct RtfDocument {
    std::vector<RtfBlock> blocks;
    std::vector<RtfFont> fonts;
    std::vector<RtfPicture> pictures;
    std::vector<std::u16string> links;  // targets; "#name" is a place in the document
};

}  // namespace varno
