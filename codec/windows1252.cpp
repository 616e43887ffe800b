#include "codec/windows1252.h"

#include <algorithm>
#include <array>

namespace varno {
namespace {

// Where the set differs from Unicode's first 256 characters: the codes 0x80 to 0x9F.
constexpr unsigned char FirstOwn = 0x80;
constexpr std::array<char16_t, 32> OwnCharacters = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80..87
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  // 88..8F
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90..97
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,  // 98..9F
};

constexpr bool IsOwn(char16_t code) {
    return code >= FirstOwn && code < FirstOwn + OwnCharacters.size();
}

}  // namespace

unsigned char ToWindows1252(char16_t character) {
    if (character <= 0xFF && !IsOwn(character)) {
        return static_cast<unsigned char>(character);
    }
    const auto* const found = std::find(OwnCharacters.begin(), OwnCharacters.end(), character);
    if (found == OwnCharacters.end()) {
        return '?';
    }
    return static_cast<unsigned char>(FirstOwn + (found - OwnCharacters.begin()));
}

char16_t FromWindows1252(unsigned char code) {
    return IsOwn(code) ? OwnCharacters[code - FirstOwn] : code;
}

std::u16string FromWindows1252(std::string_view bytes) {
    std::u16string text(bytes.size(), u'\0');
    std::transform(bytes.begin(), bytes.end(), text.begin(),
                   [](char byte) { return FromWindows1252(static_cast<unsigned char>(byte)); });
    return text;
}

bool IsPrinted(unsigned char code) {
    const char16_t character = FromWindows1252(code);
    return character >= u' ' && (character < 0x7F || character > 0x9F);
}

char16_t UpperCase(char16_t character) {
    if (character >= u'a' && character <= u'z') {
        return character - 0x20;
    }
    if (character >= 0xE0 && character <= 0xFE && character != 0xF7) {
        return character - 0x20;
    }
    if (character == 0xFF) {
        return 0x0178;
    }
    const bool caron = character == 0x0161 || character == 0x0153 || character == 0x017E;
    return caron ? character - 1 : character;
}

}  // namespace varno
