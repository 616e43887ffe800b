#include "platform/rtf/field_instruction.h"

#include <algorithm>

namespace varno {
namespace {

constexpr std::u16string_view Blanks = u" \t\r\n";

// Cuts the next word, or the next text in quotes, off the front.
std::u16string_view TakeArgument(std::u16string_view& rest) {
    rest.remove_prefix(std::min(rest.find_first_not_of(Blanks), rest.size()));
    const bool quoted = rest.starts_with(u'"');
    rest.remove_prefix(quoted ? 1 : 0);
    const std::size_t end = quoted ? rest.find(u'"') : rest.find_first_of(Blanks);
    const std::u16string_view argument = rest.substr(0, end);
    rest.remove_prefix(std::min(argument.size() + 1, rest.size()));
    return argument;
}

bool IsHyperlink(std::u16string_view word) {
    constexpr std::u16string_view Name = u"HYPERLINK";
    return std::equal(word.begin(), word.end(), Name.begin(), Name.end(),
                      [](char16_t a, char16_t b) { return a == b || (a ^ 0x20) == b; });
}

}  // namespace

std::optional<std::u16string> HyperlinkTarget(std::u16string_view instruction) {
    if (!IsHyperlink(TakeArgument(instruction))) {
        return std::nullopt;
    }
    std::u16string address;
    std::u16string place;
    while (!instruction.empty()) {
        const std::u16string_view argument = TakeArgument(instruction);
        if (argument == u"\\l") {
            place = TakeArgument(instruction);
        } else if (argument == u"\\o" || argument == u"\\t") {
            TakeArgument(instruction);  // tool tip, window
        } else if (!argument.starts_with(u'\\') && address.empty()) {
            address = argument;
        }
    }
    return place.empty() ? address : address + u"#" + place;
}

}  // namespace varno
