// Marked text and catalogues hold UTF-16, the controls UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace varno {

// What is no valid encoding becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view text);

// Whether a byte of UTF-8 goes on with the character before it: no text is cut in front of one.
constexpr bool ContinuesCharacter(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

}  // namespace varno
