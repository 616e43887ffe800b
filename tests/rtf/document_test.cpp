// What a viewer is told about a document beyond its text.
#include <gtest/gtest.h>

#include "codec/utf8.h"
#include "platform/rtf/rtf_reader.h"

namespace varno {
namespace {

RtfDocument Read(const std::string& rtf) {
    RtfDocument document;
    EXPECT_EQ(ReadRtf(rtf, document), std::nullopt);
    return document;
}

const RtfParagraph& ParagraphAt(const std::vector<RtfBlock>& blocks, std::size_t index) {
    return std::get<RtfParagraph>(blocks.at(index).content);
}

std::string Text(const std::vector<RtfRun>& runs) {
    std::u16string text;
    for (const RtfRun& run : runs) {
        text += run.text;
    }
    return ToUtf8(text);
}

TEST(RtfDocument, ParagraphsHaveTheirFormat) {
    const RtfDocument document = Read(
        R"({\rtf1{\colortbl;\red1\green2\blue3;}\pard\qc\li720\ri-100\fi-360\sb120\sa60\cbpat1 a\par)"
        R"( b\par\pard\qj c\li99999999\par{\qr d\par}e})");
    ASSERT_EQ(document.blocks.size(), 5U);
    const RtfParagraphFormat first = {RtfAlignment::Centre, 720, -100, -360, 120, 60, 0x030201};
    EXPECT_EQ(ParagraphAt(document.blocks, 0).format, first);
    EXPECT_EQ(ParagraphAt(document.blocks, 1).format, first);
    EXPECT_EQ(ParagraphAt(document.blocks, 2).format,
              (RtfParagraphFormat{RtfAlignment::Justify, 31680, 0, 0, 0, 0, {}}));
    EXPECT_EQ(ParagraphAt(document.blocks, 3).format.alignment, RtfAlignment::Right);
    EXPECT_EQ(ParagraphAt(document.blocks, 4).format.alignment, RtfAlignment::Justify);
}

TEST(RtfDocument, RunsHaveTheirStyle) {
    const RtfDocument document = Read(
        R"({\rtf1\deff3{\fonttbl{\f3\fswiss\fcharset0 Arial{\*\falt Helvetica};}{\f0\fmodern Courier;}})"
        R"({\colortbl;\red255\green255\blue0;}a{\f0\fs20\highlight1\super b}{\f9\fs0\dn4 c}\plain d)"
        R"({\field{\*\fldinst{HYPERLINK "http://x/y" \\o "tip" \\l "z"}}{\fldrslt\plain e}}f)"
        R"({\field{\*\fldinst hyperlink \\l here}{\fldrslt g}}{\field{\*\fldinst PAGE}{\fldrslt h}}})");
    ASSERT_EQ(document.fonts.size(), 2U);
    EXPECT_EQ(document.fonts[0].name, u"Arial");
    EXPECT_EQ(document.fonts[1].family, RtfFontFamily::FixedPitch);
    EXPECT_EQ(document.links, (std::vector<std::u16string>{u"http://x/y#z", u"#here"}));
    const auto styled = [](RtfScript script, int font, int halfPoints, int link) {
        return RtfStyle{{}, {}, false, false, false, false, script, font, halfPoints, link};
    };
    const RtfStyle plain = styled(RtfScript::Normal, 0, 24, -1);
    RtfStyle marked = styled(RtfScript::Superscript, 1, 20, -1);
    marked.background = 0x00FFFF;
    const std::pair<std::string, RtfStyle> expected[] = {
        {"a", plain},
        {"b", marked},
        {"c", styled(RtfScript::Subscript, -1, 2, -1)},
        {"d", plain},
        {"e", styled(RtfScript::Normal, 0, 24, 0)},
        {"f", plain},
        {"g", styled(RtfScript::Normal, 0, 24, 1)},
        {"h", plain},
    };
    const auto& runs = ParagraphAt(document.blocks, 0).runs;
    ASSERT_EQ(runs.size(), std::size(expected));
    for (std::size_t i = 0; i < runs.size(); ++i) {
        EXPECT_EQ(ToUtf8(runs[i].text), expected[i].first);
        EXPECT_TRUE(runs[i].style == expected[i].second) << expected[i].first;
    }
}

TEST(RtfDocument, ListItemsHaveTheirLabel) {
    const RtfDocument document = Read(
        R"({\rtf1{\fonttbl{\f0 Arial;}{\f1\fcharset2 Symbol;}}{\pntext\f1\'b7\tab}\li720 a\par)"
        R"({\listtext\b 1.\tab}b\par c\par{\listtext\pard{2.\tab }{d}{\par}}})");
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"•", "a"}, {"1.", "b"}, {"", "c"}, {"2.", "d"}};
    ASSERT_EQ(document.blocks.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(Text(ParagraphAt(document.blocks, i).label), expected[i].first);
        EXPECT_EQ(Text(ParagraphAt(document.blocks, i).runs), expected[i].second);
    }
    EXPECT_TRUE(ParagraphAt(document.blocks, 1).label.at(0).style.bold);
}

TEST(RtfDocument, PicturesHaveTheirBytesAndSize) {
    const RtfDocument document = Read(
        "{\\rtf1 a{\\*\\shppict{\\pict{\\*\\blipuid "
        "00ff}\\picw9\\picwgoal300\\pichgoal100\\picscalex50"
        "\\pngblip\r\n8950\r\n4e4 7}}{\\nonshppict{\\pict\\pngblip 00}}{\\pict\\jpegblip\\bin3 "
        "}\\{}"
        "{\\pict\\wmetafile8 00}{\\pict\\pngblip }b}");
    ASSERT_EQ(document.pictures.size(), 2U);
    EXPECT_EQ(document.pictures[0].kind, RtfPictureKind::Png);
    EXPECT_EQ(document.pictures[0].bytes, "\x89PNG");
    EXPECT_EQ(document.pictures[0].width, 150);
    EXPECT_EQ(document.pictures[0].height, 100);
    EXPECT_EQ(document.pictures[1].kind, RtfPictureKind::Jpeg);
    EXPECT_EQ(document.pictures[1].bytes, "}\\{");
    const auto& runs = ParagraphAt(document.blocks, 0).runs;
    ASSERT_EQ(runs.size(), 4U);
    EXPECT_EQ(runs[1].picture, 0);
    EXPECT_EQ(runs[2].picture, 1);
    EXPECT_EQ(Text(runs), "ab");
}

TEST(RtfDocument, TablesHaveTheirMeasures) {
    const RtfDocument document = Read(
        R"({\rtf1{\colortbl;\red1\green0\blue0;}\trowd\trgaph70\trleft-70\clbrdrt\brdrs\clcbpat1)"
        R"(\cellx1000\clmrg\cellx3000\pard\intbl a\cell b\par c\cell\row\trowd\cellx1000\pard\intbl)"
        R"( d\cell e\cell\row\pard\brdrt\brdrs f\par)"
        R"(\trowd\cellx900\pard\intbl\itap2 n\nestcell{\*\nesttableprops\trowd\cellx400\nestrow})"
        R"(\pard\intbl\itap1\cell\row})");
    ASSERT_EQ(document.blocks.size(), 3U);
    const auto& rows = std::get<RtfTable>(document.blocks[0].content).rows;
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].leftEdge, -70);
    EXPECT_EQ(rows[0].gap, 70);
    EXPECT_TRUE(rows[0].bordered);
    ASSERT_EQ(rows[0].cells.size(), 2U);
    EXPECT_EQ(rows[0].cells[0].rightEdge, 1000);
    EXPECT_EQ(rows[0].cells[0].background, 0x000001U);
    EXPECT_TRUE(rows[0].cells[1].joinsPrevious);
    EXPECT_EQ(Text(ParagraphAt(rows[0].cells[1].blocks, 1).runs), "c");
    EXPECT_FALSE(rows[1].bordered);
    EXPECT_EQ(rows[1].cells.at(1).rightEdge, 0) << "a cell that the row format does not know";
    EXPECT_EQ(Text(ParagraphAt(document.blocks, 1).runs), "f");

    const auto& outer = std::get<RtfTable>(document.blocks[2].content).rows.at(0).cells.at(0);
    ASSERT_EQ(outer.blocks.size(), 1U);
    const auto& inner = std::get<RtfTable>(outer.blocks[0].content).rows.at(0).cells.at(0);
    EXPECT_EQ(outer.rightEdge, 900);
    EXPECT_EQ(inner.rightEdge, 400);
    EXPECT_EQ(Text(ParagraphAt(inner.blocks, 0).runs), "n");
}

}  // namespace
}  // namespace varno
