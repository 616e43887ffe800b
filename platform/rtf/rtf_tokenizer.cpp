#include "platform/rtf/rtf_tokenizer.h"

#include <algorithm>
#include <limits>

#include "codec/word.h"

namespace varno {
namespace {

bool IsLetter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

// Line ends lay the file out, and NULs pad it; neither is text.
constexpr std::string_view Ignored("\r\n\0", 3);
constexpr std::string_view EndsText("\\{}\r\n\0", 6);

template <class Predicate>
std::size_t CountWhile(std::string_view text, Predicate predicate) {
    return static_cast<std::size_t>(std::find_if_not(text.begin(), text.end(), predicate) -
                                    text.begin());
}

}  // namespace

std::string_view RtfTokenizer::Take(std::size_t length) {
    const std::string_view taken = rest_.substr(0, length);
    rest_.remove_prefix(taken.size());
    return taken;
}

RtfToken RtfTokenizer::Next() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(Ignored), rest_.size()));
    if (rest_.empty()) {
        return {};
    }
    switch (rest_.front()) {
        case '{':
            return {RtfTokenKind::GroupStart, Take(1)};
        case '}':
            return {RtfTokenKind::GroupEnd, Take(1)};
        case '\\':
            Take(1);
            return Escape();
        default:
            return {RtfTokenKind::Text, Take(rest_.find_first_of(EndsText))};
    }
}

RtfToken RtfTokenizer::Escape() {
    if (rest_.empty()) {
        return {};
    }
    if (IsLetter(rest_.front())) {
        return Word();
    }
    const std::string_view symbol = Take(1);
    return symbol == "'" ? HexByte() : RtfToken{RtfTokenKind::Symbol, symbol};
}

RtfToken RtfTokenizer::Word() {
    const std::string_view word = Take(CountWhile(rest_, IsLetter));
    const std::optional<int> parameter = Parameter();
    if (rest_.starts_with(' ')) {
        Take(1);
    }
    if (word == "bin") {
        return {RtfTokenKind::Binary,
                Take(static_cast<std::size_t>(std::max(0, parameter.value_or(0))))};
    }
    return {RtfTokenKind::Word, word, parameter};
}

std::optional<int> RtfTokenizer::Parameter() {
    const bool negative = rest_.size() > 1 && rest_[0] == '-' && IsDigit(rest_[1]);
    if (negative) {
        Take(1);
    }
    const std::string_view digits = Take(CountWhile(rest_, IsDigit));
    if (digits.empty()) {
        return std::nullopt;
    }
    constexpr long long Limit = std::numeric_limits<int>::max();
    long long value = 0;
    for (const char digit : digits) {
        value = std::min(Limit, value * 10 + (digit - '0'));
    }
    return static_cast<int>(negative ? -value : value);
}

// Two digits; where one is missing or wrong, the other counts alone, and without any there is an
// empty piece of text.
RtfToken RtfTokenizer::HexByte() {
    const std::size_t digits =
        CountWhile(rest_.substr(0, 2), [](char c) { return HexDigit(c) >= 0; });
    if (digits == 0) {
        return {RtfTokenKind::Text, Take(0)};
    }
    int value = 0;
    for (const char digit : Take(digits)) {
        value = value * 16 + HexDigit(digit);
    }
    return {RtfTokenKind::Byte, {}, {}, static_cast<char>(value)};
}

}  // namespace varno
