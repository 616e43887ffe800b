// What holds inside one group of a rich-text document, until its closing brace.
#pragma once

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

struct RtfGroupState {
    RtfDestination destination = RtfDestination::Body;
    // Skipped text with an alternative in Unicode: where that one goes.
    RtfDestination alternative = RtfDestination::Skipped;
    bool opensDestination = false;  // which ends with this very group
    bool ignorable = false;         // an unknown word next makes the group skipped
    int unicodeSkip = 1;            // characters that stand in for a Unicode character behind it

    RtfStyle style;
    // One writer gives bold and italic of East Asian text by words of their own.
    bool eastAsian = false;
    bool eastAsianBold = false;
    bool eastAsianItalic = false;
    int codePage = code_pages::Windows1252;
    bool hidden = false;
    bool deleted = false;  // by a tracked change

    RtfParagraphFormat paragraph;
    bool inTable = false;
    int nesting = 1;               // of tables, counts while inTable
    bool nestedRowFormat = false;  // row formats are those of the inner table
    bool tableBorder = false;      // border kinds are those of the row, not of the paragraph
};

}  // namespace varno
