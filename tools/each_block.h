// Commands that do the same to each of several blocks.
#pragma once

#include "tools/commands.h"

namespace varno {

// What is done to one block ends as for that block alone. With several, each is done whole or
// refused; a table then tells which, and the worst is how the program ends.
void RunCommand(const Request& request);

}  // namespace varno
