// The pieces that marked text is read in: a character by itself, or a code with its digits.
#pragma once

#include <cstddef>
#include <optional>

#include "codec/marked_text.h"
#include "codec/word.h"

namespace varno {

struct Piece {
    enum class Kind {
        Text,  // a black character
        Ascii,
        Control,
        Print,
        LeftOut,  // comments, line breaks, and what has the colour of a code but is none
    };

    Kind kind;
    std::size_t start;
    std::size_t end;           // exclusive
    std::optional<Word> code;  // none if its number is too large, which leaves it out as well

    bool IsCode() const { return kind != Kind::Text && kind != Kind::LeftOut; }
    bool IsInTicket() const { return kind == Kind::Text || code; }
};

// The piece that begins at `start`, which is in the text.
Piece PieceAt(const MarkedText& text, std::size_t start);

}  // namespace varno
