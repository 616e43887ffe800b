#pragma once

#include <string_view>

namespace varno {

// Of this system, as the build says it: "1.0.2".
extern const std::string_view Version;

}  // namespace varno
