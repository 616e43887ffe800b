// How long the text in the ticket editor may get: ten times what the longest ticket needs (1995
// codes, each on a line with its comment), and half of what the screen lays out in a second.
#pragma once

#include <cstddef>
#include <string_view>

namespace varno {

inline constexpr std::size_t MostCharacters = 500'000;  // UTF-16 units; a line break is two
inline constexpr std::size_t MostLines = 20'000;

// Room for that text in rich text with pictures beside it. A longer ticket file is not even read.
inline constexpr std::size_t MostTicketFileBytes = std::size_t{64} << 20;

// For the operator.
inline constexpr const char* TooLongForATicket =
    "The text is too long for a ticket: the editor takes at most 20,000 lines and 500,000 "
    "characters.";

struct TextSize {
    std::size_t characters = 0;
    std::size_t lineBreaks = 0;  // of any kind
};

TextSize SizeOf(std::u16string_view text);

constexpr bool FitsEditor(const TextSize& size) {
    return size.characters <= MostCharacters && size.lineBreaks < MostLines;
}

}  // namespace varno
