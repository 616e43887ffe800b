#include "codec/pieces.h"

#include <algorithm>

namespace varno {
namespace {

// A coloured letter with the digits behind it that stands for one word.
struct Mark {
    Piece::Kind kind;
    Colour colour;
    char16_t letter;
    Word base;
    std::size_t maxDigits;
};

constexpr Mark Marks[] = {
    {Piece::Kind::Ascii, AsciiCodeColour, u'A', 0, 3},
    {Piece::Kind::Control, ControlCodeColour, u'C', ControlCode, std::u16string_view::npos},
    {Piece::Kind::Print, PrintCodeColour, u'P', PrintCode, std::u16string_view::npos},
};

bool IsDigitOf(const Mark& mark, const MarkedText& text, std::size_t at) {
    return at < text.Length() && text.At(at) >= u'0' && text.At(at) <= u'9' &&
           text.FormatAt(at).colour == mark.colour;
}

Piece Code(const Mark& mark, const MarkedText& text, std::size_t start) {
    Piece piece{mark.kind, start, start + 1, {}};
    int number = 0;  // stays at MaxWordValue + 1 once it is too large for a word
    for (std::size_t digits = 0; digits < mark.maxDigits && IsDigitOf(mark, text, piece.end);
         ++digits) {
        number = std::min(number * 10 + (text.At(piece.end++) - u'0'), MaxWordValue + 1);
    }
    if (number <= MaxWordValue) {
        piece.code = static_cast<Word>(mark.base + number);
    }
    return piece;
}

}  // namespace

Piece PieceAt(const MarkedText& text, std::size_t start) {
    const char16_t character = text.At(start);
    const Colour colour = text.FormatAt(start).colour;
    for (const Mark& mark : Marks) {
        if (colour == mark.colour && character == mark.letter) {
            return Code(mark, text, start);
        }
    }
    const bool isText = colour == TextColour && character >= u' ';
    return {isText ? Piece::Kind::Text : Piece::Kind::LeftOut, start, start + 1, {}};
}

}  // namespace varno
