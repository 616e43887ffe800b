// The terminal window as designed.
#pragma once

#include <span>

#include "platform/window_layout.h"

namespace varno {

extern const WindowDesign TerminalDesign;
extern const std::span<const LayoutRow> TerminalLayout;

}  // namespace varno
