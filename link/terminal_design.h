// The terminal window as designed, and where its controls go at any size.
#pragma once

#include <optional>

#include "platform/design.h"

namespace varno {

extern const WindowDesign TerminalDesign;

struct TerminalLayout {
    Place text;
    Place clear;
    Place exit;
};

// Takes the window's outer size. Nothing if the window is too small.
std::optional<TerminalLayout> LayOutTerminal(int outerWidth, int outerHeight);

}  // namespace varno
