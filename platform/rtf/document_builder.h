// Puts a document together from paragraphs, cells and rows as they end.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "platform/rtf/rtf_document.h"

namespace varno {

struct RtfCellFormat {
    int rightEdge = 0;
    std::optional<Colour> background;
    bool joinsPrevious = false;
};

struct RtfRowFormat {
    int leftEdge = 0;
    int gap = 0;
    bool bordered = false;
    std::vector<RtfCellFormat> cells;
    RtfCellFormat nextCell;  // filled until its right edge is given
};

// A level is the depth in tables: 0 is outside of any, 1 in a cell of a table, and so on. Text
// belongs to the paragraph that ends next. What a damaged document leaves open is closed as if it
// had been ended in order.
class RtfDocumentBuilder {
  public:
    explicit RtfDocumentBuilder(RtfDocument& document) : document_(document), levels_(1) {}

    void AddText(std::u16string_view text, const RtfStyle& style);
    void AddLabel(std::u16string_view text, const RtfStyle& style);
    void AddPicture(RtfPicture picture, const RtfStyle& style);
    // The label is complete, but for the blanks and the tab around it.
    void EndLabel();
    // The label went on to the end of the paragraph: what stands behind its tab, or all of it, is
    // text.
    void SplitLabel();
    // The UTF-16 units of the text so far; the end of a paragraph counts two, that of a cell one.
    std::size_t Length() const { return length_; }
    bool ParagraphHasContent() const { return !paragraph_.runs.empty(); }

    void EndParagraph(int level, const RtfParagraphFormat& format, const RtfStyle& mark);
    // From level 1 on. A cell ends its last paragraph.
    void EndCell(int level, const RtfParagraphFormat& format, const RtfStyle& mark);
    void EndRow(int level, const RtfParagraphFormat& format, const RtfStyle& mark);

    // A box of text in a paragraph of this level: what comes until its end stands in front of that
    // paragraph, on this level or deeper.
    void BeginBox(int level);
    void EndBox(int level, const RtfParagraphFormat& format, const RtfStyle& mark);

    // The format of the rows of a level, from now on.
    RtfRowFormat& RowFormat(int level);

    void Finish(int level, const RtfParagraphFormat& format, const RtfStyle& mark);

  private:
    struct Level {
        RtfRowFormat format;
        std::vector<RtfRow> rows;
        std::vector<RtfCell> cells;
        std::vector<RtfBlock> blocks;  // of the cell being read; of the document on level 0
    };

    void GoTo(int level);
    void CloseInnermost();
    void CloseCell();
    void CloseRow();

    RtfDocument& document_;
    RtfParagraph paragraph_;
    std::vector<RtfParagraph> aroundBoxes_;  // what was read of them so far, outermost first
    std::vector<Level> levels_;
    std::size_t length_ = 0;
};

}  // namespace varno
