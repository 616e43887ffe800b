// The single-byte character set of the indicator and of text files: Windows-1252.
#pragma once

#include <string>
#include <string_view>

namespace varno {

// The code of a character; "?" (0x3F) for one outside the set. The five codes that the set leaves
// undefined (81, 8D, 8F, 90, 9D) stand for the control characters U+0081 and so on.
unsigned char ToWindows1252(char16_t character);
char16_t FromWindows1252(unsigned char code);

std::u16string FromWindows1252(std::string_view bytes);

// False for control characters and for the five codes that the set leaves undefined.
bool IsPrinted(unsigned char code);

// Upper case of the set's letters; every other character (also a letter whose capital the set
// lacks) stays.
char16_t UpperCase(char16_t character);

}  // namespace varno
