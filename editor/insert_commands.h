// The three commands that insert a code into the ticket.
#pragma once

#include <string_view>

#include "codec/decoder.h"
#include "editor/picker.h"
#include "platform/platform.h"
#include "platform/rich_text.h"

namespace varno {

// Inserts the choice of a picker at the caret; an empty choice changes nothing.
// `digits`: one to three of them.
void InsertAsciiChoice(RichTextBox& richText, std::u16string_view digits);

// A code mark and its comment, on a line of their own. `row`: code in the first three characters,
// then the comment with the blank in front of it.
using MarkProcedure = void (*)(MarkedEditor&, std::u16string_view code);
void InsertCodeChoice(RichTextBox& richText, std::u16string_view row, MarkProcedure insertMark);

class InsertCommands {
  public:
    InsertCommands(RichTextBox& richText, Platform& platform, const Catalogues& catalogues);

    // Show the picker and insert its choice, as one step of undo.
    void InsertAsciiCode();
    void InsertControlCode();
    void InsertPrintCode();

  private:
    RichTextBox& richText_;
    Picker asciiCodesList_;
    Picker controlCodesList_;
    Picker printCodesList_;
};

}  // namespace varno
