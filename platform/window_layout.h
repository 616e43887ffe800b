// How controls follow the size of their window: a table, the rows of one control together.
#pragma once

#include <span>
#include <string_view>

#include "platform/window.h"

namespace varno {

// What a row sets: a horizontal measure from the window's outer width, a vertical one from its
// outer height.
enum class Measure {
    Left,
    Right,  // the control's right edge; its width stays
    Top,
    Width,
    Height,
};

struct LayoutRow {
    std::string_view control;
    Measure measure;
    int offset;         // twips, added to the window's width or height
    int percent = 100;  // of that width or height
};

// Everything not named keeps its place. False if a width or height would be negative; nothing is
// moved then.
bool LayOutControls(Window& window, std::span<const LayoutRow> rows, int outerWidth,
                    int outerHeight);

}  // namespace varno
