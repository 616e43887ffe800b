// A line of a block's text, taken apart at its blanks. What it cannot mean is thrown as a
// BlockTextError, which the reader of the text catches.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "block/block_text.h"
#include "codec/word.h"

namespace varno {

struct BlockTextError : BlockTextFault {};

class BlockTextLine {
  public:
    BlockTextLine(std::string_view text, std::size_t number) : text_(text), number_(number) {}

    std::string_view Text() const { return text_; }
    bool IsTicketText() const { return text_.starts_with('|'); }
    bool IsRemark() const;
    bool AtEnd() const { return text_.find_first_not_of(' ', next_) == std::string_view::npos; }

    // The next word of the line; without one, the line is refused as `wanted` says.
    std::string_view Word(const char* wanted);
    // The same, as four hexadecimal digits.
    varno::Word HexWord();
    // The number at the start of `word`, which the line gave last.
    int TicketNumber(std::string_view word) const;
    void RequireEnd();

    // At the word that the line gave last.
    [[noreturn]] void Refuse(const std::string& what) const { RefuseAt(begin_ + 1, what); }
    [[noreturn]] void RefuseAt(std::size_t column, const std::string& what) const;

  private:
    std::string_view text_;
    std::size_t number_;
    std::size_t begin_ = 0;  // of the word taken last
    std::size_t next_ = 0;   // behind it
};

}  // namespace varno
