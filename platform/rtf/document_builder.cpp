#include "platform/rtf/document_builder.h"

#include <algorithm>
#include <utility>

namespace varno {
namespace {

// Deeper tables become part of the cell that they stand in.
constexpr int DeepestLevel = 8;

void AddTo(std::vector<RtfRun>& runs, std::u16string_view text, const RtfStyle& style) {
    if (text.empty()) {
        return;
    }
    if (runs.empty() || runs.back().picture >= 0 || !(runs.back().style == style)) {
        runs.push_back({style, {}, -1});
    }
    runs.back().text += text;
}

RtfRow MakeRow(std::vector<RtfCell> cells, const RtfRowFormat& format) {
    for (std::size_t i = 0; i < std::min(cells.size(), format.cells.size()); ++i) {
        cells[i].rightEdge = format.cells[i].rightEdge;
        cells[i].background = format.cells[i].background;
        cells[i].joinsPrevious = i > 0 && format.cells[i].joinsPrevious;
    }
    return {std::move(cells), format.leftEdge, format.gap, format.bordered};
}

// Behind an inner table stands an empty paragraph that only ends the cell.
bool OnlyEndsCell(const std::vector<RtfBlock>& blocks, const RtfParagraph& paragraph) {
    return paragraph.runs.empty() && !blocks.empty() &&
           std::holds_alternative<RtfTable>(blocks.back().content);
}

}  // namespace

void RtfDocumentBuilder::AddText(std::u16string_view text, const RtfStyle& style) {
    AddTo(paragraph_.runs, text, style);
    length_ += text.size();
}

void RtfDocumentBuilder::AddLabel(std::u16string_view text, const RtfStyle& style) {
    AddTo(paragraph_.label, text, style);
}

void RtfDocumentBuilder::EndLabel() {
    std::vector<RtfRun>& label = paragraph_.label;
    while (!label.empty()) {
        std::u16string& last = label.back().text;
        last.erase(last.find_last_not_of(u"\t ") + 1);
        if (!last.empty()) {
            std::u16string& first = label.front().text;
            first.erase(0, first.find_first_not_of(u' '));
            return;
        }
        label.pop_back();
    }
}

void RtfDocumentBuilder::SplitLabel() {
    const std::vector<RtfRun> label = std::exchange(paragraph_.label, {});
    bool isText = std::none_of(label.begin(), label.end(), [](const RtfRun& run) {
        return run.text.find(u'\t') != std::u16string::npos;
    });
    for (const RtfRun& run : label) {
        const std::u16string_view text = run.text;
        const std::size_t tab = isText ? 0 : std::min(text.find(u'\t'), text.size());
        const std::size_t behind = isText ? 0 : std::min(tab + 1, text.size());
        AddLabel(text.substr(0, tab), run.style);
        AddText(text.substr(behind), run.style);
        isText = isText || tab < text.size();
    }
}

void RtfDocumentBuilder::AddPicture(RtfPicture picture, const RtfStyle& style) {
    document_.pictures.push_back(std::move(picture));
    paragraph_.runs.push_back({style, {}, static_cast<int>(document_.pictures.size()) - 1});
}

void RtfDocumentBuilder::GoTo(int level) {
    const auto wanted = static_cast<std::size_t>(std::clamp(level, 0, DeepestLevel)) + 1;
    while (levels_.size() > wanted) {
        CloseInnermost();
    }
    levels_.resize(wanted);
}

void RtfDocumentBuilder::CloseInnermost() {
    if (!levels_.back().blocks.empty()) {
        CloseCell();
    }
    CloseRow();
    std::vector<RtfRow> rows = std::move(levels_.back().rows);
    levels_.pop_back();
    if (!rows.empty()) {
        levels_.back().blocks.push_back({RtfTable{std::move(rows)}});
    }
}

void RtfDocumentBuilder::CloseCell() {
    Level& level = levels_.back();
    RtfCell cell;
    cell.blocks = std::exchange(level.blocks, {});
    level.cells.push_back(std::move(cell));
    ++length_;
}

void RtfDocumentBuilder::CloseRow() {
    Level& level = levels_.back();
    if (!level.cells.empty()) {
        level.rows.push_back(MakeRow(std::exchange(level.cells, {}), level.format));
    }
}

void RtfDocumentBuilder::EndParagraph(int level, const RtfParagraphFormat& format,
                                      const RtfStyle& mark) {
    GoTo(level);
    length_ += LineBreak.size();
    paragraph_.format = format;
    paragraph_.mark = mark;
    levels_.back().blocks.push_back({std::exchange(paragraph_, {})});
}

void RtfDocumentBuilder::EndCell(int level, const RtfParagraphFormat& format,
                                 const RtfStyle& mark) {
    GoTo(level);
    if (!OnlyEndsCell(levels_.back().blocks, paragraph_)) {
        EndParagraph(level, format, mark);
    }
    CloseCell();
}

void RtfDocumentBuilder::EndRow(int level, const RtfParagraphFormat& format, const RtfStyle& mark) {
    GoTo(level);
    if (ParagraphHasContent()) {
        EndParagraph(level, format, mark);
    }
    if (!levels_.back().blocks.empty()) {
        CloseCell();
    }
    CloseRow();
}

void RtfDocumentBuilder::BeginBox(int level) {
    GoTo(level);
    aroundBoxes_.push_back(std::exchange(paragraph_, {}));
}

void RtfDocumentBuilder::EndBox(int level, const RtfParagraphFormat& format, const RtfStyle& mark) {
    if (ParagraphHasContent()) {
        EndParagraph(level, format, mark);
    }
    GoTo(level);
    paragraph_ = std::move(aroundBoxes_.back());
    aroundBoxes_.pop_back();
}

RtfRowFormat& RtfDocumentBuilder::RowFormat(int level) {
    // A row format stands before its row: the table may be open, deeper ones stay so.
    const auto needed = static_cast<std::size_t>(std::clamp(level, 1, DeepestLevel)) + 1;
    levels_.resize(std::max(levels_.size(), needed));
    return levels_[needed - 1].format;
}

void RtfDocumentBuilder::Finish(int level, const RtfParagraphFormat& format, const RtfStyle& mark) {
    while (!aroundBoxes_.empty()) {
        EndBox(level, format, mark);
    }
    if (ParagraphHasContent()) {
        EndParagraph(level, format, mark);
    }
    GoTo(0);
    document_.blocks = std::move(levels_.front().blocks);
}

}  // namespace varno
