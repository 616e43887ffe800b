#include "editor/insert_commands.h"

#include <memory>

#include "codec/insert.h"
#include "codec/word.h"
#include "editor/ascii_picker.h"
#include "editor/code_picker.h"

namespace varno {
namespace {

int ValueOfDigits(std::u16string_view digits) {
    int value = 0;
    for (const char16_t digit : digits) {
        value = value * 10 + (digit - u'0');
    }
    return value;
}

bool IsBehindLineBreak(const MarkedEditor& editor) {
    const int position = editor.SelStart();
    return position == 0 ||
           (editor.CharAt(position - 1) == u'\r' && editor.CharAt(position) == u'\n');
}

}  // namespace

void InsertAsciiChoice(RichTextBox& richText, std::u16string_view digits) {
    if (digits.empty()) {
        return;
    }
    const int value = ValueOfDigits(digits);
    richText.AsOneStep([&] {
        if (value == ' ') {
            return InsertPlain(richText, {&SpaceMarker, 1});
        }
        const auto character = static_cast<char16_t>(value);
        if (value > ' ' && value < 127) {
            return InsertPlain(richText, {&character, 1});
        }
        InsertAsciiMark(richText, digits);
        InsertComment(richText, u" ");
        InsertPlain(richText);
    });
}

void InsertCodeChoice(RichTextBox& richText, std::u16string_view row, MarkProcedure insertMark) {
    if (row.empty()) {
        return;
    }
    richText.AsOneStep([&] {
        if (!IsBehindLineBreak(richText)) {
            InsertPlain(richText, LineBreak);
        }
        insertMark(richText, row.substr(0, CodeDigits));
        InsertComment(richText, row.substr(CodeDigits));
        InsertPlain(richText, LineBreak);
    });
}

InsertCommands::InsertCommands(RichTextBox& richText, Platform& platform,
                               const Catalogues& catalogues)
    : richText_(richText),
      asciiCodesList_([&platform] { return std::make_unique<AsciiPicker>(platform); }),
      controlCodesList_([&platform, path = catalogues.controlCodes] {
          return std::make_unique<CodePicker>(platform, ControlCodesList(), path);
      }),
      printCodesList_([&platform, path = catalogues.printCodes] {
          return std::make_unique<CodePicker>(platform, PrintCodesList(), path);
      }) {}

void InsertCommands::InsertAsciiCode() {
    InsertAsciiChoice(richText_, asciiCodesList_.AsLeft().Pick());
}

void InsertCommands::InsertControlCode() {
    InsertCodeChoice(richText_, controlCodesList_.AsLeft().Pick(), InsertControlMark);
}

void InsertCommands::InsertPrintCode() {
    InsertCodeChoice(richText_, printCodesList_.AsLeft().Pick(), InsertPrintMark);
}

}  // namespace varno
