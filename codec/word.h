// A word of the ticket memory: 16 bits, written as four hexadecimal digits, most significant first.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace varno {

using Word = std::uint16_t;

// The class of a word: its high byte AND 0xF8.
enum WordClass : int {
    CharacterClass = 0x00,
    TicketHeaderClass = 0x08,
    TicketEndClass = 0x10,
    ControlCodeClass = 0x20,
    PrintCodeClass = 0x40,
    EndMarkerClass = 0x80,
};

inline constexpr int WordDigits = 4;
inline constexpr int MaxWordValue = 2047;
inline constexpr std::size_t CodeDigits = 3;  // of a code number as text, at least

inline constexpr Word TicketHeader = 0x0800;  // plus the ticket number
inline constexpr Word TicketEnd = 0x1000;
inline constexpr Word ControlCode = 0x2000;  // plus the code number
inline constexpr Word PrintCode = 0x4000;    // plus the code number
inline constexpr Word EndMarker = 0x8000;

constexpr int ClassOf(Word word) {
    return (word >> 8) & 0xF8;
}
constexpr int ValueOf(Word word) {
    return word & 0x07FF;
}

// The value of a hexadecimal digit in either case, or -1.
int HexDigit(char character);

// Four upper-case digits.
std::string WordHex(Word word);

// The number that up to `digits` characters from `position` (0-based) write in hexadecimal, either
// case. A character that is not a hexadecimal digit, or lies behind the end, counts as the digit 0.
unsigned HexAt(std::string_view text, std::size_t position, int digits);

}  // namespace varno
