#include "paper/effects.h"

#include <algorithm>
#include <iterator>

namespace varno {
namespace {

std::string Counted(int number, const std::string& thing) {
    return std::to_string(number) + " " + thing + (number == 1 ? "" : "s");
}

std::string StyleNamed(int style) {
    const auto* const named =
        std::find_if(std::begin(StyleNames), std::end(StyleNames),
                     [&](const StyleName& each) { return static_cast<int>(each.style) == style; });
    return std::string(named->name);
}

std::string InWords(const Effect& effect) {
    constexpr const char* Sides[] = {"left", "in the centre", "right"};
    switch (effect.kind) {
        case Effect::Kind::Nothing:
            break;
        case Effect::Kind::StyleOn:
            return "switches " + StyleNamed(effect.argument) + " on";
        case Effect::Kind::StyleOff:
            return "switches " + StyleNamed(effect.argument) + " off";
        case Effect::Kind::Align:
            return std::string("aligns lines ") + Sides[effect.argument];
        case Effect::Kind::Margin:
            return "sets a margin of " + Counted(effect.argument, "column");
        case Effect::Kind::Tab:
            return "goes to column " + std::to_string(effect.argument);
        case Effect::Kind::Feed:
            return "feeds " + Counted(effect.argument, "line");
        case Effect::Kind::Cut:
            return "cuts the paper";
        case Effect::Kind::Reset:
            return "ends styles, sides and margins";
    }
    return "prints nothing";
}

}  // namespace

std::string InWords(const std::vector<Effect>& effects) {
    std::string words;
    for (const Effect& effect : effects) {
        words += (words.empty() ? "" : ", ") + InWords(effect);
    }
    return words.empty() ? InWords(Effect{}) : words;
}

std::u16string SampleValue::Filled() const {
    const auto columns = std::max(static_cast<std::size_t>(std::max(width, 0)), text.size());
    const std::u16string fill(columns - text.size(), u' ');
    if (side == Side::Left) {
        return text + fill;
    }
    return fill + text;
}

}  // namespace varno
