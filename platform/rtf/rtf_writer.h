// Writes marked text as rich text (RTF) that any word processor opens.
#pragma once

#include <string>

#include "codec/marked_text.h"

namespace varno {

// A document in which every character has its colour and its four styles. CR LF ends a paragraph,
// in the format of its CR; a CR or LF alone, tabs and all other characters stand for themselves.
// Reading it gives the same marked text again.
std::string WriteRtf(const MarkedText& text);

}  // namespace varno
