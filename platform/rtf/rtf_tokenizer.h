// Cuts rich text into its smallest pieces. Takes any bytes; every call moves on, and the text
// handed out points into the document.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace varno {

enum class RtfTokenKind {
    End,
    GroupStart,
    GroupEnd,
    Word,    // text: its letters
    Symbol,  // text: the one character behind the backslash
    Byte,    // text-to-be, written in hexadecimal: value
    Text,    // bytes as they stand
    Binary,  // text: data that is no rich text
};

struct RtfToken {
    RtfTokenKind kind = RtfTokenKind::End;
    std::string_view text = {};
    std::optional<int> parameter = {};  // Word; kept within the range of int
    char value = 0;
};

class RtfTokenizer {
  public:
    explicit RtfTokenizer(std::string_view document) : rest_(document) {}

    RtfToken Next();

  private:
    RtfToken Escape();
    RtfToken Word();
    RtfToken HexByte();
    std::optional<int> Parameter();
    std::string_view Take(std::size_t length);

    std::string_view rest_;
};

}  // namespace varno
