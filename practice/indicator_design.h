// The simulated indicator's window as designed, and how its controls follow its size. Measures are
// twips.
#pragma once

#include <span>
#include <string_view>

#include "platform/design.h"
#include "platform/window_layout.h"
#include "simulator/line.h"

namespace varno {

const WindowDesign& IndicatorDesign();
std::span<const LayoutRow> IndicatorLayout();

// A window smaller than this springs back to it; outer measures.
inline constexpr int IndicatorMinimumWidth = 6420;
inline constexpr int IndicatorMinimumHeight = 4800;

// Menu items that put a fault onto the line, so many characters later, and those that set its
// speed.
struct FaultItem {
    std::string_view name;
    Line::Fault fault;
    int after;
};
struct SpeedItem {
    std::string_view name;
    int baud;
};
std::span<const FaultItem> FaultItems();
std::span<const SpeedItem> SpeedItems();

// The buttons of the keys, in the order of KeyNames.
std::span<const std::string_view> KeyButtons();

}  // namespace varno
