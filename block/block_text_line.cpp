#include "block/block_text_line.h"

#include <algorithm>
#include <charconv>

#include "block/rows.h"

namespace varno {
namespace {

// False unless the whole text is the number.
template <class Number>
bool ReadNumber(std::string_view text, Number& number, int base) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    return error == std::errc() && end == text.data() + text.size();
}

}  // namespace

bool BlockTextLine::IsRemark() const {
    return text_.starts_with('#') || text_.find_first_not_of(" \t") == std::string_view::npos;
}

std::string_view BlockTextLine::Word(const char* wanted) {
    begin_ = std::min(text_.find_first_not_of(' ', next_), text_.size());
    next_ = std::min(text_.find(' ', begin_), text_.size());
    if (begin_ == next_) {
        Refuse(wanted);
    }
    return text_.substr(begin_, next_ - begin_);
}

varno::Word BlockTextLine::HexWord() {
    const std::string_view digits = Word("Four hexadecimal digits are missing here.");
    varno::Word word = 0;
    if (digits.size() != WordDigits || !ReadNumber(digits, word, 16)) {
        Refuse("These are not four hexadecimal digits.");
    }
    return word;
}

int BlockTextLine::TicketNumber(std::string_view word) const {
    int number = 0;
    if (!ReadNumber(word, number, 10) || !IsTicketNumber(number)) {
        Refuse("A ticket number lies between " + TicketNumbers(" and ") + ".");
    }
    return number;
}

void BlockTextLine::RequireEnd() {
    if (AtEnd()) {
        return;
    }
    Word("");
    Refuse("The line should end before this.");
}

void BlockTextLine::RefuseAt(std::size_t column, const std::string& what) const {
    throw BlockTextError{{number_, column, what}};
}

}  // namespace varno
