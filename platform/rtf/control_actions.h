// What the control words of rich text do to the interpreter: one function for each, or one template
// for a family. Each takes the word's parameter; switches are off at 0.
#pragma once

#include <limits>

#include "platform/rtf/interpreter.h"

namespace varno::rtf_actions {

using In = RtfInterpreter;

int Measure(int twips);  // within 22 inches

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

void NoUnderline(In& in, int);
void FontSize(In& in, int size);
void Plain(In& in, int);

template <char16_t Unit>
void Character(In& in, int) {
    constexpr char16_t Units[] = {Unit};
    in.AddText({Units, 1});
}

void LineBreakWord(In& in, int);
void Unicode(In& in, int value);
void UnicodeSkip(In& in, int count);

// ---- Paragraphs and tables

template <RtfAlignment Alignment>
void Align(In& in, int) {
    in.State().paragraph.alignment = Alignment;
}

template <int RtfParagraphFormat::*Field>
void ParagraphMeasure(In& in, int twips) {
    in.State().paragraph.*Field = Measure(twips);
}

void ParagraphBackground(In& in, int number);
void OutlineLevel(In& in, int level);  // from 0; 9 is running text
void ParagraphDefaults(In& in, int);
void EndParagraph(In& in, int);
void BreakPage(In& in, int);
void EndCell(In& in, int);
void EndNestedCell(In& in, int);
void EndRow(In& in, int);
void EndNestedRow(In& in, int);
void TableNesting(In& in, int depth);

// What follows is for row formats, which nobody needs outside the body.
template <void (*Apply)(In&, RtfRowFormat&, int)>
void Row(In& in, int parameter) {
    if (in.InBody()) {
        Apply(in, in.RowFormat(), parameter);
    }
}

void RowDefaults(In&, RtfRowFormat& row, int);
void RowLeft(In&, RtfRowFormat& row, int twips);
void RowGap(In&, RtfRowFormat& row, int twips);
void CellJoins(In&, RtfRowFormat& row, int);
void CellEdge(In&, RtfRowFormat& row, int twips);
void CellBackground(In& in, RtfRowFormat& row, int number);
void BorderKind(In& in, RtfRowFormat& row, int);

// ---- Tables at the head

void Font(In& in, int number);

template <RtfFontFamily Family>
void FontFamily(In& in, int) {
    if (in.State().destination == RtfDestination::FontTable) {
        in.Fonts().SetFamily(Family);
    }
}

void FontCodePage(In& in, int codePage);
void FontCharset(In& in, int charset);

template <int CodePage>
void DocumentCharset(In& in, int) {
    in.SetDefaultCodePage(CodePage);
}

void DocumentCodePage(In& in, int codePage);
void DefaultFont(In& in, int number);

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
void Stay(In&, int);  // known, so that it is not skipped
inline constexpr auto Skip = Enter<RtfDestination::Skipped>;

void NestedTableProperties(In& in, int);

// Text twice, in bytes and then in Unicode; drawings, which may hold each other and text.
void SkipButAPart(In& in, int);
void ShowPart(In& in, int);
void ShowBox(In& in, int);

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
