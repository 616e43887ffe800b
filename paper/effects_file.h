// The files that say what codes do: the installation's, beside the code catalogues, and the user's,
// read after it, so that its lines win.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "paper/effects.h"

namespace varno {

inline constexpr std::string_view EffectsFileName = "Varno Code Effects.txt";

// Reads `EffectsFileName` in both folders. Returns a sentence for each thing that is wrong: a wrong
// line, a file that cannot be read or is too long, and a missing one if it is the installation's.
std::vector<std::string> LoadEffects(const std::string& catalogueFolder,
                                     const std::string& userFolder, Effects& effects);

}  // namespace varno
