#pragma once

#include <string>

namespace varno {

// Where the programs look for what a user has set up beside the settings: XDG_DATA_HOME or what
// stands for it.
std::string UserDataFolder();

}  // namespace varno
