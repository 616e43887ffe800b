// The 32 control characters of ASCII, as the rows of the ASCII picker.
#pragma once

#include <array>
#include <string>

namespace varno {

// Row n describes code n in fixed columns: decimal, hexadecimal, binary, control notation, name.
// Each row has 26 characters.
std::array<std::string, 32> AsciiTable();

}  // namespace varno
