// The preview window as designed, and how its controls follow its size. Measures are twips.
#pragma once

#include <span>

#include "platform/design.h"
#include "platform/window_layout.h"

namespace varno {

const WindowDesign& PreviewDesign();
std::span<const LayoutRow> PreviewLayout();

// A window smaller than this springs back to it; outer measures.
inline constexpr int PreviewMinimumWidth = 6000;
inline constexpr int PreviewMinimumHeight = 3600;

}  // namespace varno
