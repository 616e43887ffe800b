#include "platform/rtf/control_words.h"

#include <algorithm>
#include <unordered_map>

#include "platform/rtf/control_actions.h"

namespace varno {
namespace {

using namespace rtf_actions;

// Words that do the same, separated by blanks.
struct WordRow {
    std::string_view names;
    RtfControlWord word;
};

template <char16_t Unit>
constexpr RtfControlWord Sign = {Character<Unit>, 0, true};

constexpr WordRow Rows[] = {
    // Characters
    {"b", {Toggle<&RtfStyle::bold>, 1}},
    {"i", {Toggle<&RtfStyle::italic>, 1}},
    {"ul uld uldash uldashd uldashdd uldb ulhair ulhwave ulldash ulth ulthd ulthdash ulthdashd "
     "ulthdashdd ulthldash ululdbwave ulw ulwave",
     {Underline, 1}},
    {"ulnone", {NoUnderline}},
    {"strike striked", {Strike, 1}},
    {"dbch", {Writing<EastAsian>}},
    {"rtlch", {Writing<Complex>}},
    {"loch hich ltrch", {Writing<Western>}},
    {"ab", {ToggleAssociated<&RtfEmphasis::bold>, 1}},
    {"ai", {ToggleAssociated<&RtfEmphasis::italic>, 1}},
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
    {"emdash", Sign<u'\u2014'>},
    {"endash", Sign<u'\u2013'>},
    {"emspace", Sign<u'\u2003'>},
    {"enspace", Sign<u'\u2002'>},
    {"qmspace", Sign<u'\u2005'>},
    {"bullet", Sign<u'\u2022'>},
    {"lquote", Sign<u'\u2018'>},
    {"rquote", Sign<u'\u2019'>},
    {"ldblquote", Sign<u'\u201C'>},
    {"rdblquote", Sign<u'\u201D'>},
    {"ltrmark", Sign<u'\u200E'>},
    {"rtlmark", Sign<u'\u200F'>},
    {"zwj", Sign<u'\u200D'>},
    {"zwnj", Sign<u'\u200C'>},
    {"zwbo", Sign<u'\u200B'>},
    {"zwnbo", Sign<u'\u2060'>},
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
    {"outlinelevel", {OutlineLevel}},
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
    {"ansi", {DocumentCharset<code_pages::Windows1252>}},
    {"mac", {DocumentCharset<code_pages::MacRoman>}},
    {"pc", {DocumentCharset<code_pages::Dos>}},
    {"pca", {DocumentCharset<code_pages::DosLatin1>}},
    {"urtf", {DocumentCharset<code_pages::Utf8>}},
    {"ansicpg", {DocumentCodePage, code_pages::Windows1252}},
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
    {"upr shp shpgrp do", {SkipButAPart}},
    {"ud", {ShowPart}},
    {"shptxt dptxbxtext", {ShowBox}},
    {"fldrslt result shppict shpinst", {Stay}},
    {"stylesheet filetbl revtbl listtable listoverridetable info header headerl headerr headerf "
     "footer footerl footerr footerf footnote ftnsep ftnsepc ftncn aftnsep aftnsepc aftncn "
     "annotation atnid atnauthor atntime atnref atnicn objdata objclass objname objalias objsect "
     "nonshppict shprslt xe tc tcn rxe txe bkmkstart bkmkend template private",
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
