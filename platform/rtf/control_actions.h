// What the control words of rich text do to the interpreter: one function for each, or one template
// for a family. Each takes the word's parameter; switches are off at 0.
#pragma once

#include <algorithm>
#include <limits>

#include "platform/rtf/interpreter.h"

namespace varno::rtf_actions {

using In = RtfInterpreter;

inline constexpr int LargestMeasure = 31680;  // 22 inches
inline constexpr int LargestFont = 3276;
inline constexpr int LargestUnicodeSkip = 255;

inline int Measure(int twips) {
    return std::clamp(twips, -LargestMeasure, LargestMeasure);
}

// ---- Characters

template <bool RtfStyle::*Field>
void Toggle(In& in, int on) {
    in.State().style.*Field = on != 0;
}

template <RtfScript Script>
void SetScript(In& in, int on) {
    in.State().style.script = on != 0 ? Script : RtfScript::Normal;
}

template <std::optional<Colour> RtfStyle::*Field>
void SetColour(In& in, int number) {
    in.State().style.*Field = in.Colours().At(number);
}

template <bool RtfGroupState::*Field>
void SetFlag(In& in, int on) {
    in.State().*Field = on != 0;
}

template <RtfWriting Named>
void Writing(In& in, int) {
    in.State().writing = Named;
}

template <bool RtfEmphasis::*Field>
void ToggleAssociated(In& in, int on) {
    in.State().associated[in.State().writing].*Field = on != 0;
}

inline void NoUnderline(In& in, int) {
    in.State().style.underline = false;
}
inline void FontSize(In& in, int size) {
    in.State().style.halfPoints = std::clamp(size, 2, LargestFont);
}

inline void Plain(In& in, int) {
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

template <char16_t Unit>
void Character(In& in, int) {
    constexpr char16_t Units[] = {Unit};
    in.AddText({Units, 1});
}

inline void LineBreakWord(In& in, int) {
    in.AddText(LineBreak);
}
inline void Unicode(In& in, int value) {
    if (value != std::numeric_limits<int>::min()) {
        in.AddUnicode(value);
    }
}
inline void UnicodeSkip(In& in, int count) {
    in.State().unicodeSkip = std::clamp(count, 0, LargestUnicodeSkip);
}

// ---- Paragraphs and tables

template <RtfAlignment Alignment>
void Align(In& in, int) {
    in.State().paragraph.alignment = Alignment;
}

template <int RtfParagraphFormat::*Field>
void ParagraphMeasure(In& in, int twips) {
    in.State().paragraph.*Field = Measure(twips);
}

inline void ParagraphBackground(In& in, int number) {
    in.State().paragraph.background = in.Colours().At(number);
}

inline void ParagraphDefaults(In& in, int) {
    in.State().paragraph = {};
    in.State().inTable = false;
    in.State().nesting = 1;
}

inline void EndParagraph(In& in, int) {
    in.EndParagraph();
}
inline void BreakPage(In& in, int) {
    in.BreakPage();
}
inline void EndCell(In& in, int) {
    in.EndCell(1);
}
inline void EndNestedCell(In& in, int) {
    in.EndCell(in.NestedLevel());
}
inline void EndRow(In& in, int) {
    in.EndRow(1);
}
inline void EndNestedRow(In& in, int) {
    in.EndRow(in.NestedLevel());
}

inline void TableNesting(In& in, int depth) {
    in.State().nesting = depth;
    in.State().inTable = depth > 0;
}

// What follows is for row formats, which nobody needs outside the body.
template <void (*Apply)(In&, RtfRowFormat&, int)>
void Row(In& in, int parameter) {
    if (in.InBody()) {
        Apply(in, in.RowFormat(), parameter);
    }
}

inline void RowDefaults(In&, RtfRowFormat& row, int) {
    row = {};
}
inline void RowLeft(In&, RtfRowFormat& row, int twips) {
    row.leftEdge = Measure(twips);
}
inline void RowGap(In&, RtfRowFormat& row, int twips) {
    row.gap = Measure(twips);
}
inline void CellJoins(In&, RtfRowFormat& row, int) {
    row.nextCell.joinsPrevious = true;
}

inline void CellEdge(In&, RtfRowFormat& row, int twips) {
    row.nextCell.rightEdge = Measure(twips);
    row.cells.push_back(row.nextCell);
    row.nextCell = {};
}

inline void CellBackground(In& in, RtfRowFormat& row, int number) {
    row.nextCell.background = in.Colours().At(number);
}

inline void BorderKind(In& in, RtfRowFormat& row, int) {
    row.bordered = row.bordered || in.State().tableBorder;
}

// ---- Tables at the head

inline void Font(In& in, int number) {
    if (in.State().destination == RtfDestination::FontTable) {
        in.Fonts().Begin(number);
    }
    in.SetFont(number);
}

template <RtfFontFamily Family>
void FontFamily(In& in, int) {
    if (in.State().destination == RtfDestination::FontTable) {
        in.Fonts().SetFamily(Family);
    }
}

inline void FontCodePage(In& in, int codePage) {
    if (in.State().destination == RtfDestination::FontTable) {
        in.Fonts().SetCodePage(codePage);
        in.State().codePage = codePage == code_pages::Symbol ? in.DefaultCodePage() : codePage;
    }
}

inline void FontCharset(In& in, int charset) {
    if (const auto codePage = CodePageOfCharset(charset)) {
        FontCodePage(in, *codePage);
    }
}

template <int CodePage>
void DocumentCharset(In& in, int) {
    in.SetDefaultCodePage(CodePage);
}

inline void DocumentCodePage(In& in, int codePage) {
    in.SetDefaultCodePage(codePage);
}
inline void DefaultFont(In& in, int number) {
    in.SetDefaultFont(number);
}

template <void (RtfColourTable::*Set)(int)>
void ColourPart(In& in, int value) {
    if (in.State().destination == RtfDestination::ColourTable) {
        (in.Colours().*Set)(value);
    }
}

// ---- Destinations

template <RtfDestination Destination>
void Enter(In& in, int) {
    in.Enter(Destination);
}
inline void Stay(In&, int) {}  // known, so that it is not skipped
inline constexpr auto Skip = Enter<RtfDestination::Skipped>;

inline void NestedTableProperties(In& in, int) {
    in.State().nestedRowFormat = true;
}

// Text twice, in bytes and then in Unicode; drawings, which may hold each other and text.
inline void SkipButAPart(In& in, int) {
    const RtfGroupState around = in.State();
    in.Enter(RtfDestination::Skipped);
    const bool shown = around.destination != RtfDestination::Skipped;
    in.State().shownPart = shown ? around.destination : around.shownPart;
}
inline void ShowPart(In& in, int) {
    in.State().destination = in.State().shownPart;
}
inline void ShowBox(In& in, int) {
    in.EnterBox();
}

template <RtfPictureKind Kind>
void PictureKind(In& in, int) {
    in.Picture().SetKind(Kind);
}

template <void (RtfPictureReader::*Set)(int)>
void PictureMeasure(In& in, int value) {
    (in.Picture().*Set)(value);
}

inline constexpr int NoValue = std::numeric_limits<int>::min();
inline constexpr auto Underline = Toggle<&RtfStyle::underline>;
inline constexpr auto Strike = Toggle<&RtfStyle::strikeThrough>;
inline constexpr auto Foreground = SetColour<&RtfStyle::colour>;
inline constexpr auto Background = SetColour<&RtfStyle::background>;
inline constexpr auto TableBorder = SetFlag<&RtfGroupState::tableBorder>;

}  // namespace varno::rtf_actions
