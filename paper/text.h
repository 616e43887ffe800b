// Paper as text.
#pragma once

#include <string>

#include "paper/paper.h"

namespace varno {

// UTF-8, each row ended by LF. A character in double width has a blank behind it, a broken line
// ends with "↵" and a cut is a row of dashes; blanks at the end of a row are left out.
std::string PaperText(const Paper& paper);

// The same row by row, without its line end; a feed of several lines holds line ends.
std::string RowText(const Paper& paper, const PaperRow& row);

// With the attributes of a terminal for bold, underlined and inverse characters; sample values are
// dimmed.
std::string TerminalText(const Paper& paper);

}  // namespace varno
