// The history's window as designed, and how its controls follow its size. Measures are twips.
#pragma once

#include <span>

#include "platform/design.h"
#include "platform/window_layout.h"

namespace varno {

const WindowDesign& HistoryDesign();
std::span<const LayoutRow> HistoryLayout();

// A window smaller than this springs back to it; outer measures.
inline constexpr int HistoryMinimumWidth = 9600;
inline constexpr int HistoryMinimumHeight = 6000;

}  // namespace varno
