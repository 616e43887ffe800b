#include "paper/effects.h"

#include <algorithm>

namespace varno {

std::u16string SampleValue::Filled() const {
    const auto columns = std::max(static_cast<std::size_t>(std::max(width, 0)), text.size());
    const std::u16string fill(columns - text.size(), u' ');
    if (side == Side::Left) {
        return text + fill;
    }
    return fill + text;
}

}  // namespace varno
