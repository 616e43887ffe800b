// The tables at the head of a rich-text document: its fonts and its colours.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/rtf/rtf_document.h"

namespace varno {

// Fonts by the numbers that the document gives them.
class RtfFontTable {
  public:
    explicit RtfFontTable(std::vector<RtfFont>& fonts) : fonts_(fonts) {}

    // The font that names and properties are for, until the next one begins.
    void Begin(int number);
    void AddName(std::u16string_view text);  // up to its semicolon
    void SetFamily(RtfFontFamily family);
    void SetCodePage(int codePage);

    int IndexOf(int number) const;  // -1: not in the table
    // `otherwise`: when the table does not say.
    int CodePageOf(int number, int otherwise) const;
    bool IsSymbol(int index) const;  // named "Symbol"

  private:
    std::vector<RtfFont>& fonts_;
    std::vector<int> codePages_;  // as long as fonts_; 0: not said
    std::unordered_map<int, int> indexes_;
    bool nameEnded_ = true;
};

class RtfColourTable {
  public:
    void SetRed(int value) { Set(0, value); }
    void SetGreen(int value) { Set(8, value); }
    void SetBlue(int value) { Set(16, value); }
    void AddText(std::string_view text);  // a semicolon ends an entry

    // Absent: automatic, as an entry without a value and one that does not exist.
    std::optional<Colour> At(int number) const;

  private:
    void Set(int shift, int value);

    std::vector<std::optional<Colour>> colours_;
    std::optional<Colour> next_;
};

}  // namespace varno
