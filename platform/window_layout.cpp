#include "platform/window_layout.h"

#include <algorithm>

namespace varno {
namespace {

void Apply(const LayoutRow& row, Place& place, int outerWidth, int outerHeight) {
    const int x = outerWidth * row.percent / 100 + row.offset;
    const int y = outerHeight * row.percent / 100 + row.offset;
    switch (row.measure) {
        case Measure::Left:
            place.left = x;
            break;
        case Measure::Right:
            place.left = x - place.width;
            break;
        case Measure::Top:
            place.top = y;
            break;
        case Measure::Width:
            place.width = x;
            break;
        case Measure::Height:
            place.height = y;
            break;
    }
}

bool Fits(const LayoutRow& row, int outerWidth, int outerHeight) {
    Place place;
    Apply(row, place, outerWidth, outerHeight);
    return place.width >= 0 && place.height >= 0;
}

}  // namespace

bool LayOutControls(Window& window, std::span<const LayoutRow> rows, int outerWidth,
                    int outerHeight) {
    if (!std::all_of(rows.begin(), rows.end(),
                     [&](const LayoutRow& row) { return Fits(row, outerWidth, outerHeight); })) {
        return false;
    }
    for (auto row = rows.begin(); row != rows.end();) {
        const std::string_view name = row->control;
        auto& control = window.Get<Control>(name);
        Place place = control.GetPlace();
        for (; row != rows.end() && row->control == name; ++row) {
            Apply(*row, place, outerWidth, outerHeight);
        }
        control.SetPlace(place);
    }
    return true;
}

}  // namespace varno
