// Where the caret is, in words: for those who do not see it, or not what is at it.
#pragma once

#include <cstddef>
#include <string>

#include "codec/marked_text.h"
#include "codec/ticket_text.h"
#include "paper/effects.h"

namespace varno {

// UTF-8: the place on the paper, then what stands behind the caret, or what the caret is within,
// and what that does, as in "Printed line 3, column 12 of the paper. Control code 005, LINE FEED,
// feeds 1 line."
std::string CaretSentence(const MarkedText& ticket, std::size_t caret, const Effects& effects,
                          const CodeComment& comment);

}  // namespace varno
