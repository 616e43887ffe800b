#pragma once

#include <string>

#include "paper/paper.h"

namespace varno {

// The paper as a picture. Sample values are blue, and a line below the paper says what that means.
std::string PaperSvg(const Paper& paper);

}  // namespace varno
