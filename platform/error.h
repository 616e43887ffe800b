// How an operation that can fail reports it.
#pragma once

#include <optional>
#include <string>

namespace varno {

// The description for the operator (UTF-8), or nothing when all went well.
using Error = std::optional<std::string>;

}  // namespace varno
