// The entry text of the serial settings: "1:9600,n,8,1".
#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "platform/error.h"

namespace varno {

std::string PortEntry(int port, std::string_view settings);

// The port number, or why the entry holds none. It is the number that the text before the first
// colon begins with, blanks ignored and rounded to a whole one (halves to the even neighbour); 0
// where there is none.
std::variant<int, std::string> EnteredPort(std::string_view entry);

// What stands behind the first colon; the whole entry if there is none.
std::string_view EnteredSettings(std::string_view entry);

}  // namespace varno
