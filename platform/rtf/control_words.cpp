#include "platform/rtf/control_words.h"

#include <algorithm>
#include <limits>
#include <unordered_map>

#include "platform/rtf/interpreter.h"

namespace varno {
namespace {

using In = RtfInterpreter;

constexpr int LargestMeasure = 31680;  // 22 inches
constexpr int LargestFont = 3276;
constexpr int LargestUnicodeSkip = 255;

int Measure(int twips) {
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

template <bool RtfGroupState::*Field>
void ToggleEastAsian(In& in, int on) {
    if (in.State().eastAsian) {
        in.State().*Field = on != 0;
    }
}

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
    state.eastAsian = false;
    state.eastAsianBold = false;
    state.eastAsianItalic = false;
    in.ApplyDefaultFont();
}

template <char16_t Unit>
void Character(In& in, int) {
    constexpr char16_t Units[] = {Unit};
    in.AddText({Units, 1});
}

void LineBreakWord(In& in, int) {
    in.AddText(LineBreak);
}
void Unicode(In& in, int value) {
    if (value != std::numeric_limits<int>::min()) {
        in.AddUnicode(value);
    }
}
void UnicodeSkip(In& in, int count) {
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

void ParagraphBackground(In& in, int number) {
    in.State().paragraph.background = in.Colours().At(number);
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

// What follows is for row formats, which nobody needs outside the body.
template <void (*Apply)(In&, RtfRowFormat&, int)>
void Row(In& in, int parameter) {
    if (in.InBody()) {
        Apply(in, in.RowFormat(), parameter);
    }
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

template <RtfFontFamily Family>
void FontFamily(In& in, int) {
    if (in.State().destination == RtfDestination::FontTable) {
        in.Fonts().SetFamily(Family);
    }
}

void FontCodePage(In& in, int codePage) {
    if (in.State().destination == RtfDestination::FontTable) {
        in.Fonts().SetCodePage(codePage);
        in.State().codePage = codePage == CodePages::Symbol ? in.DefaultCodePage() : codePage;
    }
}

void FontCharset(In& in, int charset) {
    if (const auto codePage = CodePageOfCharset(charset)) {
        FontCodePage(in, *codePage);
    }
}

template <int CodePage>
void DocumentCharset(In& in, int) {
    in.SetDefaultCodePage(CodePage);
}

void DocumentCodePage(In& in, int codePage) {
    in.SetDefaultCodePage(codePage);
}
void DefaultFont(In& in, int number) {
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
void Stay(In&, int) {}  // known, so that it is not skipped
constexpr auto Skip = Enter<RtfDestination::Skipped>;

void NestedTableProperties(In& in, int) {
    in.State().nestedRowFormat = true;
}

// Text twice, in bytes and then in Unicode.
void TextWithAlternative(In& in, int) {
    in.State().alternative = in.State().destination;
    in.State().destination = RtfDestination::Skipped;
}
void UnicodeAlternative(In& in, int) {
    in.State().destination = in.State().alternative;
}

template <RtfPictureKind Kind>
void PictureKind(In& in, int) {
    in.Picture().SetKind(Kind);
}

template <void (RtfPictureReader::*Set)(int)>
void PictureMeasure(In& in, int value) {
    (in.Picture().*Set)(value);
}

constexpr int NoValue = std::numeric_limits<int>::min();
constexpr auto Underline = Toggle<&RtfStyle::underline>;
constexpr auto Strike = Toggle<&RtfStyle::strikeThrough>;
constexpr auto Foreground = SetColour<&RtfStyle::colour>;
constexpr auto Background = SetColour<&RtfStyle::background>;
constexpr auto EastAsian = SetFlag<&RtfGroupState::eastAsian>;
constexpr auto TableBorder = SetFlag<&RtfGroupState::tableBorder>;

// Words that do the same, separated by blanks.
struct WordRow {
    std::string_view names;
    RtfControlWord word;
};

constexpr WordRow Rows[] = {
    // Characters
    {"b", {Toggle<&RtfStyle::bold>, 1}},
    {"i", {Toggle<&RtfStyle::italic>, 1}},
    {"ul uld uldash uldashd uldashdd uldb ulhair ulhwave ulldash ulth ulthd ulthdash ulthdashd "
     "ulthdashdd ulthldash ululdbwave ulw ulwave",
     {Underline, 1}},
    {"ulnone", {NoUnderline}},
    {"strike striked", {Strike, 1}},
    {"dbch", {EastAsian, 1}},
    {"loch hich ltrch rtlch", {EastAsian}},
    {"ab", {ToggleEastAsian<&RtfGroupState::eastAsianBold>, 1}},
    {"ai", {ToggleEastAsian<&RtfGroupState::eastAsianItalic>, 1}},
    {"super", {SetScript<RtfScript::Superscript>, 1}},
    {"sub", {SetScript<RtfScript::Subscript>, 1}},
    {"up", {SetScript<RtfScript::Superscript>, 6}},
    {"dn", {SetScript<RtfScript::Subscript>, 6}},
    {"nosupersub", {SetScript<RtfScript::Normal>}},
    {"cf", {Foreground}},
    {"cb highlight chcbpat", {Background}},
    {"fs", {FontSize, 24}},
    {"v", {SetFlag<&RtfGroupState::hidden>, 1}},
    {"deleted", {SetFlag<&RtfGroupState::deleted>, 1}},
    {"plain", {Plain}},
    {"u", {Unicode, NoValue}},
    {"uc", {UnicodeSkip, 1}},
    {"tab", {Character<u'\t'>}},
    {"line lbr", {LineBreakWord}},
    {"emdash", {Character<u'\u2014'>}},
    {"endash", {Character<u'\u2013'>}},
    {"emspace", {Character<u'\u2003'>}},
    {"enspace", {Character<u'\u2002'>}},
    {"qmspace", {Character<u'\u2005'>}},
    {"bullet", {Character<u'\u2022'>}},
    {"lquote", {Character<u'\u2018'>}},
    {"rquote", {Character<u'\u2019'>}},
    {"ldblquote", {Character<u'\u201C'>}},
    {"rdblquote", {Character<u'\u201D'>}},
    {"ltrmark", {Character<u'\u200E'>}},
    {"rtlmark", {Character<u'\u200F'>}},
    {"zwj", {Character<u'\u200D'>}},
    {"zwnj", {Character<u'\u200C'>}},
    {"zwbo", {Character<u'\u200B'>}},
    {"zwnbo", {Character<u'\u2060'>}},
    // Paragraphs
    {"par", {EndParagraph}},
    {"page column sect", {BreakPage}},
    {"pard", {ParagraphDefaults}},
    {"ql", {Align<RtfAlignment::Left>}},
    {"qc", {Align<RtfAlignment::Centre>}},
    {"qr", {Align<RtfAlignment::Right>}},
    {"qj", {Align<RtfAlignment::Justify>}},
    {"li", {ParagraphMeasure<&RtfParagraphFormat::leftIndent>}},
    {"ri", {ParagraphMeasure<&RtfParagraphFormat::rightIndent>}},
    {"fi", {ParagraphMeasure<&RtfParagraphFormat::firstIndent>}},
    {"sb", {ParagraphMeasure<&RtfParagraphFormat::spaceBefore>}},
    {"sa", {ParagraphMeasure<&RtfParagraphFormat::spaceAfter>}},
    {"cbpat", {ParagraphBackground}},
    // Tables
    {"intbl", {SetFlag<&RtfGroupState::inTable>, 1}},
    {"itap", {TableNesting, 1}},
    {"cell", {EndCell}},
    {"nestcell", {EndNestedCell}},
    {"row", {EndRow}},
    {"nestrow", {EndNestedRow}},
    {"nesttableprops", {NestedTableProperties}},
    {"nonesttables", {Skip}},
    {"trowd", {Row<RowDefaults>}},
    {"trleft", {Row<RowLeft>}},
    {"trgaph", {Row<RowGap>}},
    {"cellx", {Row<CellEdge>}},
    {"clmrg", {Row<CellJoins>}},
    {"clcbpat", {Row<CellBackground>}},
    {"clbrdrt clbrdrl clbrdrb clbrdrr trbrdrt trbrdrl trbrdrb trbrdrr", {TableBorder, 1}},
    {"brdrt brdrl brdrb brdrr box", {TableBorder}},
    {"brdrs brdrth brdrdb brdrdot brdrdash brdrhair", {Row<BorderKind>}},
    // Character sets and the tables at the head
    {"ansi", {DocumentCharset<CodePages::Windows1252>}},
    {"mac", {DocumentCharset<CodePages::MacRoman>}},
    {"pc", {DocumentCharset<CodePages::Dos>}},
    {"pca", {DocumentCharset<CodePages::DosLatin1>}},
    {"urtf", {DocumentCharset<CodePages::Utf8>}},
    {"ansicpg", {DocumentCodePage, CodePages::Windows1252}},
    {"deff", {DefaultFont}},
    {"f", {Font}},
    {"fnil", {FontFamily<RtfFontFamily::Any>}},
    {"froman", {FontFamily<RtfFontFamily::Serif>}},
    {"fswiss", {FontFamily<RtfFontFamily::SansSerif>}},
    {"fmodern", {FontFamily<RtfFontFamily::FixedPitch>}},
    {"fscript", {FontFamily<RtfFontFamily::Script>}},
    {"fdecor", {FontFamily<RtfFontFamily::Decorative>}},
    {"fcharset", {FontCharset}},
    {"cpg", {FontCodePage}},
    {"red", {ColourPart<&RtfColourTable::SetRed>}},
    {"green", {ColourPart<&RtfColourTable::SetGreen>}},
    {"blue", {ColourPart<&RtfColourTable::SetBlue>}},
    // Destinations
    {"fonttbl", {Enter<RtfDestination::FontTable>}},
    {"colortbl", {Enter<RtfDestination::ColourTable>}},
    {"listtext pntext", {Enter<RtfDestination::Label>}},
    {"fldinst", {Enter<RtfDestination::FieldInstruction>}},
    {"pict", {Enter<RtfDestination::Picture>}},
    {"upr", {TextWithAlternative}},
    {"ud", {UnicodeAlternative}},
    {"fldrslt result shppict", {Stay}},
    {"stylesheet filetbl revtbl listtable listoverridetable info header headerl headerr headerf "
     "footer footerl footerr footerf footnote ftnsep ftnsepc ftncn aftnsep aftnsepc aftncn "
     "annotation atnid atnauthor atntime atnref atnicn objdata objclass objname objalias objsect "
     "nonshppict shp do xe tc tcn rxe txe bkmkstart bkmkend template private",
     {Skip}},
    // Pictures
    {"pngblip", {PictureKind<RtfPictureKind::Png>}},
    {"jpegblip", {PictureKind<RtfPictureKind::Jpeg>}},
    {"picwgoal", {PictureMeasure<&RtfPictureReader::SetWidth>}},
    {"pichgoal", {PictureMeasure<&RtfPictureReader::SetHeight>}},
    {"picscalex", {PictureMeasure<&RtfPictureReader::SetScaleX>, 100}},
    {"picscaley", {PictureMeasure<&RtfPictureReader::SetScaleY>, 100}},
};

// Every word of the rows, by its name.
using WordIndex = std::unordered_map<std::string_view, RtfControlWord>;

WordIndex IndexByName() {
    WordIndex index;
    for (const WordRow& row : Rows) {
        std::string_view names = row.names;
        while (!names.empty()) {
            const std::string_view name = names.substr(0, names.find(' '));
            index.emplace(name, row.word);
            names.remove_prefix(std::min(name.size() + 1, names.size()));
        }
    }
    return index;
}

}  // namespace

const RtfControlWord* FindRtfControlWord(std::string_view name) {
    static const WordIndex index = IndexByName();
    const auto found = index.find(name);
    return found == index.end() ? nullptr : &found->second;
}

}  // namespace varno
