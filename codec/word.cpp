#include "codec/word.h"

#include <algorithm>

namespace varno {
namespace {

constexpr std::string_view HexDigits = "0123456789ABCDEF";

unsigned ValueOrZero(char digit) {
    return static_cast<unsigned>(std::max(HexDigit(digit), 0));
}

}  // namespace

int HexDigit(char digit) {
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'A' && digit <= 'F') {
        return digit - 'A' + 10;
    }
    if (digit >= 'a' && digit <= 'f') {
        return digit - 'a' + 10;
    }
    return -1;
}

std::string WordHex(Word word) {
    return {HexDigits[word >> 12], HexDigits[(word >> 8) & 15], HexDigits[(word >> 4) & 15],
            HexDigits[word & 15]};
}

unsigned HexAt(std::string_view text, std::size_t position, int digits) {
    unsigned number = 0;
    for (int i = 0; i < digits; ++i, ++position) {
        number = number * 16 + (position < text.size() ? ValueOrZero(text[position]) : 0);
    }
    return number;
}

}  // namespace varno
