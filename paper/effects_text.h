// The text that says what codes do: one code a line, as docs/formats.md has it. A line that is
// wrong is left out, and the rest is used.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "paper/effects.h"

namespace varno {

// Adds what the lines say; a later line wins. Bytes are UTF-8, or Windows-1252 where they are not.
// Returns a sentence for each wrong line that begins with its number ("line 3: ..."), the first
// ones only if there are many.
std::vector<std::string> ParseEffects(std::string_view text, Effects& effects);

// The same for lines such as P012=9999, which give a print code another value.
std::vector<std::string> ParseValues(std::string_view text, Effects& effects);

// One such line. Returns what is wrong with it, or an empty string.
std::string SetValue(std::string_view assignment, Effects& effects);

}  // namespace varno
