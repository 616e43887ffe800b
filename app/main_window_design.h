// The main window as designed: every control and menu item, its caption, place and start state.
#pragma once

#include "platform/design.h"

namespace varno {

// A window smaller than this springs back to it; outer measures in twips.
inline constexpr int MinimumWidth = 7725;
inline constexpr int MinimumHeight = 5600;

const WindowDesign& MainWindowDesign();

}  // namespace varno
