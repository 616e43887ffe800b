// What every window offers on its paper, which is the control "Paper".
#pragma once

#include <algorithm>
#include <array>

#include "platform/window.h"

namespace varno {

inline constexpr std::array<std::string_view, 1> OnPaper{"Paper"};
inline constexpr std::array PaperItems{
    ContextItemDesign{
        .name = "CopyText", .caption = "&Copy as text", .key = "Ctrl+C", .controls = OnPaper},
    ContextItemDesign{
        .name = "ZoomIn", .caption = "Zoom &in", .key = "Ctrl++", .controls = OnPaper},
    ContextItemDesign{
        .name = "ZoomOut", .caption = "Zoom &out", .key = "Ctrl+-", .controls = OnPaper},
    ContextItemDesign{
        .name = "ActualSize", .caption = "&Actual size", .key = "Ctrl+0", .controls = OnPaper},
};

// Behind an item of the window's own.
constexpr auto PaperItemsBehind(const ContextItemDesign& own) {
    std::array<ContextItemDesign, PaperItems.size() + 1> items{own};
    std::copy(PaperItems.begin(), PaperItems.end(), items.begin() + 1);
    return items;
}

void ConnectPaperItems(Window& window);

}  // namespace varno
