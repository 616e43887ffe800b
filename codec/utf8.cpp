#include "codec/utf8.h"

#include <array>

namespace varno {
namespace {

constexpr char32_t Replacement = 0xFFFD;

// The halves of a surrogate pair. Code points above U+FFFF are none, whatever their low bits.
bool IsHigh(char32_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLow(char32_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

// The code point that begins at `next`, which moves behind it.
char32_t TakeUtf16(std::u16string_view text, std::size_t& next) {
    const char32_t unit = text[next++];
    if (IsHigh(unit) && next < text.size() && IsLow(text[next])) {
        return 0x10000 + ((unit - 0xD800) << 10) + (text[next++] - 0xDC00u);
    }
    return IsHigh(unit) || IsLow(unit) ? Replacement : unit;
}

char32_t TakeUtf8(std::string_view text, std::size_t& next) {
    // The smallest code point that needs one, two or three bytes behind the first.
    constexpr std::array<char32_t, 4> Smallest{0, 0x80, 0x800, 0x10000};
    const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
    const unsigned first = byte(next++);
    if (first < 0x80) {
        return first;
    }
    const std::size_t more = first >= 0xF0 ? 3 : first >= 0xE0 ? 2 : 1;
    if (first < 0xC2 || first > 0xF4 || text.size() - next < more) {
        return Replacement;
    }
    char32_t point = first & (0x3Fu >> more);
    for (std::size_t at = next; at < next + more; ++at) {
        if (!ContinuesCharacter(text[at])) {
            return Replacement;
        }
        point = point << 6 | (byte(at) & 0x3Fu);
    }
    if (point < Smallest.at(more) || point > 0x10FFFF || IsHigh(point) || IsLow(point)) {
        return Replacement;
    }
    next += more;
    return point;
}

void AppendUtf8(std::string& bytes, char32_t point) {
    const auto tail = [&](int shift) {
        bytes += static_cast<char>(0x80 | (point >> shift & 0x3F));
    };
    if (point < 0x80) {
        bytes += static_cast<char>(point);
    } else if (point < 0x800) {
        bytes += static_cast<char>(0xC0 | point >> 6);
        tail(0);
    } else if (point < 0x10000) {
        bytes += static_cast<char>(0xE0 | point >> 12);
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0 | point >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

}  // namespace

std::string ToUtf8(std::u16string_view text) {
    std::string bytes;
    for (std::size_t next = 0; next < text.size();) {
        AppendUtf8(bytes, TakeUtf16(text, next));
    }
    return bytes;
}

std::u16string FromUtf8(std::string_view text) {
    std::u16string units;
    for (std::size_t next = 0; next < text.size();) {
        const char32_t point = TakeUtf8(text, next);
        if (point >= 0x10000) {
            units += static_cast<char16_t>(0xD7C0 + (point >> 10));
            units += static_cast<char16_t>(0xDC00 | (point & 0x3FF));
        } else {
            units += static_cast<char16_t>(point);
        }
    }
    return units;
}

}  // namespace varno
