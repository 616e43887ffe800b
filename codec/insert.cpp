#include "codec/insert.h"

#include <string>

namespace varno {
namespace {

void InsertMark(MarkedEditor& editor, Colour colour, char16_t letter, std::u16string_view digits) {
    SetTypingFormat(editor, colour);
    InsertText(editor, letter + std::u16string(digits));
}

}  // namespace

void SetTypingFormat(MarkedEditor& editor, Colour colour, std::string_view styles) {
    const auto on = [&](char style) { return styles.find(style) != std::string_view::npos; };
    editor.SetTypingFormat({.colour = colour,
                            .bold = on('B'),
                            .italic = on('I'),
                            .underline = on('U'),
                            .strikeThrough = on('S')});
}

void InsertText(MarkedEditor& editor, std::u16string_view text) {
    editor.SetSelText(text);
}

void InsertPlain(MarkedEditor& editor, std::u16string_view text) {
    SetTypingFormat(editor, TextColour);
    InsertText(editor, text);
}

void InsertComment(MarkedEditor& editor, std::u16string_view text) {
    SetTypingFormat(editor, CommentColour);
    InsertText(editor, text);
}

void InsertAsciiMark(MarkedEditor& editor, std::u16string_view number) {
    InsertMark(editor, AsciiCodeColour, u'A', number);
}

void InsertControlMark(MarkedEditor& editor, std::u16string_view code) {
    InsertMark(editor, ControlCodeColour, u'C', code);
}

void InsertPrintMark(MarkedEditor& editor, std::u16string_view code) {
    InsertMark(editor, PrintCodeColour, u'P', code);
}

}  // namespace varno
