#pragma once

#include <span>

#include "paper/paper.h"

namespace varno {

// Prints the body words of a ticket onto paper of `effects.paperWidth` columns (out of range, the
// next width in it). Nothing is guessed: where the effect of a code is not known its name stands in
// brackets, a word of no class as "[W1800]".
Paper LayOut(std::span<const Word> body, const Effects& effects);

}  // namespace varno
