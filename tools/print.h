#pragma once

#include <span>

#include "codec/word.h"
#include "paper/effects.h"
#include "tools/commands.h"

namespace varno {

// What codes do, on the paper that the request asks for. What is wrong with the files is told.
Effects EffectsFor(const Request& request);

// Shows a ticket's body as it is printed: as text, or as a picture in a file.
void PrintBody(const Request& request, std::span<const Word> body);

}  // namespace varno
