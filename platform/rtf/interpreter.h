// Carries out a rich-text document piece by piece and builds the document from it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/rtf/code_pages.h"
#include "platform/rtf/document_builder.h"
#include "platform/rtf/group_state.h"
#include "platform/rtf/header_tables.h"
#include "platform/rtf/picture_reader.h"
#include "platform/rtf/rtf_tokenizer.h"

namespace varno {

class RtfInterpreter {
  public:
    RtfInterpreter(std::string_view bytes, RtfDocument& document);

    // Reads to the end of the document's group, or of the bytes; false if it stopped before because
    // the text is longer than `longest` units.
    bool Run(std::size_t longest);

    // What control words act upon.
    RtfGroupState& State() { return groups_.back(); }
    RtfFontTable& Fonts() { return fonts_; }
    RtfColourTable& Colours() { return colours_; }
    RtfPictureReader& Picture() { return picture_; }
    bool InBody() { return State().destination == RtfDestination::Body; }

    // The rest of the group goes to `destination`; a group inside one that is not the body is
    // skipped.
    void Enter(RtfDestination destination);
    // The rest of the group is text in a drawn box, which stands in the text in front of the
    // paragraph that it belongs to.
    void EnterBox();

    void AddText(std::u16string_view text);
    void AddUnicode(int value);  // a signed UTF-16 unit, or a code point
    void SetFont(int number);
    void SetDefaultFont(int number) { defaultFont_ = number; }
    void ApplyDefaultFont() { SetFont(defaultFont_); }
    void SetDefaultCodePage(int codePage);
    int DefaultCodePage() const { return defaultCodePage_; }

    void EndParagraph();
    void BreakPage();
    void EndCell(int level);
    void EndRow(int level);
    RtfRowFormat& RowFormat();
    int NestedLevel();  // of the inner table being read

  private:
    bool Interpret(const RtfToken& token);
    bool SkipReplacement(RtfToken& token);
    void StartGroup();
    bool EndGroup();
    void EndDestination(RtfDestination destination);
    void Word(const RtfToken& token);
    void Symbol(char symbol);
    void AddBytes(std::string_view bytes);
    void AddBodyText(std::u16string_view text);
    void FlushBytes();
    void ReturnFromLabel();
    int Level();
    bool Visible() { return !State().hidden && !State().deleted; }

    RtfTokenizer tokenizer_;
    RtfDocument& document_;
    RtfDocumentBuilder builder_;
    RtfFontTable fonts_;
    RtfColourTable colours_;
    RtfPictureReader picture_;
    CodePageDecoder decoder_;

    std::vector<RtfGroupState> groups_;  // the first stands outside of any group
    std::size_t groupsTooDeep_ = 0;      // open ones without a state of their own
    int replacementsLeft_ = 0;           // characters that only stand in for a Unicode character
    bool complex_ = false;               // the writing of the last letter
    int defaultFont_ = 0;
    int defaultCodePage_ = code_pages::Windows1252;
    std::string bytes_;           // of one code page, a character may be cut at their end
    std::u16string instruction_;  // of the field being read
};

}  // namespace varno
