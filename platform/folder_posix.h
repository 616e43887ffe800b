#pragma once

#include <string>
#include <vector>

namespace varno {

// The names of the ordinary files in an open folder, no links; none if it cannot be listed.
std::vector<std::string> FilesIn(int folder);

}  // namespace varno
