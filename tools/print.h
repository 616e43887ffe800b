#pragma once

#include <span>

#include "codec/word.h"
#include "tools/commands.h"

namespace varno {

// Shows a ticket's body as it is printed: as text, or as a picture in a file.
void PrintBody(const Request& request, std::span<const Word> body);

}  // namespace varno
