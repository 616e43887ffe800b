#include "codec/code_name.h"

#include <algorithm>
#include <charconv>

namespace varno {
namespace {

struct Kind {
    char letter;
    WordClass wordClass;
    Word base;
    std::size_t digits;  // at least
};
constexpr Kind Kinds[] = {{'A', CharacterClass, 0, 1},
                          {'C', ControlCodeClass, ControlCode, CodeDigits},
                          {'P', PrintCodeClass, PrintCode, CodeDigits}};
constexpr char OtherLetter = 'W';

std::string Decimal(int number, std::size_t digits) {
    const std::string text = std::to_string(number);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::optional<int> Number(std::string_view digits, int base, int most) {
    unsigned number = 0;
    const char* const end = digits.data() + digits.size();
    const auto result = std::from_chars(digits.data(), end, number, base);
    const bool isOne = result.ec == std::errc() && result.ptr == end;
    if (!isOne || number > static_cast<unsigned>(most)) {
        return std::nullopt;
    }
    return static_cast<int>(number);
}

}  // namespace

std::string CodeName(Word word) {
    for (const Kind& kind : Kinds) {
        if (ClassOf(word) == kind.wordClass) {
            return kind.letter + Decimal(ValueOf(word), kind.digits);
        }
    }
    return OtherLetter + WordHex(word);
}

std::optional<Word> WordNamed(std::string_view name) {
    if (name.empty()) {
        return std::nullopt;
    }
    const std::string_view digits = name.substr(1);
    if (name.front() == OtherLetter) {
        return Number(digits, 16, 0xFFFF);
    }
    for (const Kind& kind : Kinds) {
        if (name.front() == kind.letter) {
            if (const std::optional<int> number = Number(digits, 10, MaxWordValue)) {
                return static_cast<Word>(kind.base + *number);
            }
        }
    }
    return std::nullopt;
}

}  // namespace varno
