// The main window as designed: every control and menu item, its caption, place and start state.
#pragma once

#include <span>

#include "platform/window_layout.h"

namespace varno {

// A window smaller than this springs back to it; outer measures in twips.
inline constexpr int MinimumWidth = 7725;
inline constexpr int MinimumHeight = 5600;

const WindowDesign& MainWindowDesign();
std::span<const LayoutRow> MainWindowLayout();

}  // namespace varno
