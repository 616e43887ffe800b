// What holds inside one group of a rich-text document, until its closing brace.
#pragma once

#include <array>
#include <cstddef>

#include "platform/rtf/code_pages.h"
#include "platform/rtf/rtf_document.h"

namespace varno {

// Where the text of a group goes.
enum class RtfDestination {
    Body,
    Label,  // bullet or number of a list item
    FontTable,
    ColourTable,
    FieldInstruction,
    Picture,
    Skipped,
};

// As word processors divide them. Complex are Hebrew, Arabic, the scripts of India and their like.
enum RtfWriting : std::size_t { Western, EastAsian, Complex, WritingCount };

struct RtfEmphasis {
    bool bold = false;
    bool italic = false;
};

struct RtfGroupState {
    RtfDestination destination = RtfDestination::Body;
    // In a skipped group: where the part of it goes that is shown all the same.
    RtfDestination shownPart = RtfDestination::Skipped;
    bool opensDestination = false;  // which ends with this very group
    bool opensBox = false;          // of drawn text, which ends with this very group
    bool ignorable = false;         // an unknown word next makes the group skipped
    int unicodeSkip = 1;            // characters that stand in for a Unicode character behind it

    RtfStyle style;
    // Bold and italic of one writing have words of their own. They are for the writing that was
    // named last, and add to what the words for all text say.
    RtfWriting writing = Western;
    std::array<RtfEmphasis, WritingCount> associated;
    int codePage = code_pages::Windows1252;
    bool hidden = false;
    bool deleted = false;  // by a tracked change

    RtfParagraphFormat paragraph;
    int boxLevel = 0;  // of the tables around the box of drawn text that this stands in
    bool inTable = false;
    int nesting = 1;               // of tables, counts while inTable
    bool nestedRowFormat = false;  // row formats are those of the inner table
    bool tableBorder = false;      // border kinds are those of the row, not of the paragraph
};

}  // namespace varno
