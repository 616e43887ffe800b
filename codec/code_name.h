// The names of codes, as the editor and texts write them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "codec/word.h"

namespace varno {

// A27, C005, P012; W and four hexadecimal digits for a word that is none of these.
std::string CodeName(Word word);

// The word of such a name; the letter is a capital, the number has any number of digits.
std::optional<Word> WordNamed(std::string_view name);

}  // namespace varno
