// What is sound in a block, and still looks like a mistake.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "block/block_content.h"
#include "paper/effects.h"

namespace varno {

// Whether a catalogue has the control or print code.
using CodeIsKnown = std::function<bool(Word)>;

// A sentence for each: codes that are in no catalogue, words that print nothing, lines that are
// wider than the paper, styles switched on and never off, tickets with two keys, a key that could
// print a ticket that has none, and words left over behind the keys. Of a code whose effect is
// unknown nothing is said but that.
std::vector<std::string> SuspectsIn(BlockContent content, const CodeIsKnown& isKnown,
                                    const Effects& effects);

}  // namespace varno
