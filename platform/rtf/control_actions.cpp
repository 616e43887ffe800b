#include "platform/rtf/control_actions.h"

#include <algorithm>

namespace varno::rtf_actions {
namespace {

constexpr int LargestMeasure = 31680;
constexpr int LargestFont = 3276;
constexpr int LargestUnicodeSkip = 255;

}  // namespace

int Measure(int twips) {
    return std::clamp(twips, -LargestMeasure, LargestMeasure);
}

// ---- Characters

void NoUnderline(In& in, int) {
    in.State().style.underline = false;
}

void FontSize(In& in, int size) {
    in.State().style.halfPoints = std::clamp(size, 2, LargestFont);
}

void Plain(In& in, int) {
    RtfGroupState& state = in.State();
    const int link = state.style.link;
    state.style = {};
    state.style.link = link;
    state.hidden = false;
    state.deleted = false;
    state.writing = Western;
    state.associated = {};
    in.ApplyDefaultFont();
}

void LineBreakWord(In& in, int) {
    in.AddText(LineBreak);
}

void Unicode(In& in, int value) {
    if (value != NoValue) {
        in.AddUnicode(value);
    }
}

void UnicodeSkip(In& in, int count) {
    in.State().unicodeSkip = std::clamp(count, 0, LargestUnicodeSkip);
}

// ---- Paragraphs and tables

void ParagraphBackground(In& in, int number) {
    in.State().paragraph.background = in.Colours().At(number);
}

void OutlineLevel(In& in, int level) {
    in.State().paragraph.heading = level >= 0 && level < 9 ? level + 1 : 0;
}

void ParagraphDefaults(In& in, int) {
    in.State().paragraph = {};
    in.State().inTable = false;
    in.State().nesting = 1;
}

void EndParagraph(In& in, int) {
    in.EndParagraph();
}

void BreakPage(In& in, int) {
    in.BreakPage();
}

void EndCell(In& in, int) {
    in.EndCell(1);
}

void EndNestedCell(In& in, int) {
    in.EndCell(in.NestedLevel());
}

void EndRow(In& in, int) {
    in.EndRow(1);
}

void EndNestedRow(In& in, int) {
    in.EndRow(in.NestedLevel());
}

void TableNesting(In& in, int depth) {
    in.State().nesting = depth;
    in.State().inTable = depth > 0;
}

void RowDefaults(In&, RtfRowFormat& row, int) {
    row = {};
}

void RowLeft(In&, RtfRowFormat& row, int twips) {
    row.leftEdge = Measure(twips);
}

void RowGap(In&, RtfRowFormat& row, int twips) {
    row.gap = Measure(twips);
}

void CellJoins(In&, RtfRowFormat& row, int) {
    row.nextCell.joinsPrevious = true;
}

void CellEdge(In&, RtfRowFormat& row, int twips) {
    row.nextCell.rightEdge = Measure(twips);
    row.cells.push_back(row.nextCell);
    row.nextCell = {};
}

void CellBackground(In& in, RtfRowFormat& row, int number) {
    row.nextCell.background = in.Colours().At(number);
}

void BorderKind(In& in, RtfRowFormat& row, int) {
    row.bordered = row.bordered || in.State().tableBorder;
}

// ---- Tables at the head

void Font(In& in, int number) {
    if (in.State().destination == RtfDestination::FontTable) {
        in.Fonts().Begin(number);
    }
    in.SetFont(number);
}

void FontCodePage(In& in, int codePage) {
    if (in.State().destination == RtfDestination::FontTable) {
        in.Fonts().SetCodePage(codePage);
        in.State().codePage = codePage == code_pages::Symbol ? in.DefaultCodePage() : codePage;
    }
}

void FontCharset(In& in, int charset) {
    if (const auto codePage = CodePageOfCharset(charset)) {
        FontCodePage(in, *codePage);
    }
}

void DocumentCodePage(In& in, int codePage) {
    in.SetDefaultCodePage(codePage);
}

void DefaultFont(In& in, int number) {
    in.SetDefaultFont(number);
}

// ---- Destinations

void Stay(In&, int) {}

void NestedTableProperties(In& in, int) {
    in.State().nestedRowFormat = true;
}

void SkipButAPart(In& in, int) {
    const RtfGroupState around = in.State();
    in.Enter(RtfDestination::Skipped);
    const bool shown = around.destination != RtfDestination::Skipped;
    in.State().shownPart = shown ? around.destination : around.shownPart;
}

void ShowPart(In& in, int) {
    in.State().destination = in.State().shownPart;
}

void ShowBox(In& in, int) {
    in.EnterBox();
}

}  // namespace varno::rtf_actions
