// Marked text: a ticket as the operator sees it. The colour of a character decides what it means
// to the ticket; its styles mean nothing there, but a ticket file keeps them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace varno {

// 0x00BBGGRR: blue in the high byte.
using Colour = std::uint32_t;

inline constexpr Colour TextColour = 0x000000;         // black: printed as it stands
inline constexpr Colour AsciiCodeColour = 0xFF00FF;    // magenta: "A" and up to three digits
inline constexpr Colour ControlCodeColour = 0x0000FF;  // red: "C" and digits
inline constexpr Colour PrintCodeColour = 0xFF0000;    // blue: "P" and digits
inline constexpr Colour CommentColour = 0x00A000;      // green: explains, is never encoded

inline constexpr char16_t LineEndMarker = u'\u00AC';       // one printed line end: CR and LF
inline constexpr char16_t SpaceMarker = u'\u00F7';         // one printed space
inline constexpr std::u16string_view LineBreak = u"\r\n";  // breaks the line on the screen only

struct CharFormat {
    Colour colour = TextColour;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool strikeThrough = false;

    bool operator==(const CharFormat&) const = default;
};

// Text in UTF-16 units with one format for each unit. Line breaks are CR LF, two units.
class MarkedText {
  public:
    MarkedText() = default;

    // Insert before `position` (0-based, at most Length()).
    void Insert(std::size_t position, std::u16string_view text, const CharFormat& format);
    void Append(std::u16string_view text, const CharFormat& format);
    void Reserve(std::size_t length);  // spares copies while so much is appended
    void Erase(std::size_t position, std::size_t length);

    const std::u16string& Text() const { return text_; }
    std::size_t Length() const { return text_.size(); }
    bool Empty() const { return text_.empty(); }
    char16_t At(std::size_t position) const { return text_[position]; }
    const CharFormat& FormatAt(std::size_t position) const { return formats_[position]; }

    // The end (exclusive) of the run of one format that begins at `position`.
    std::size_t RunEnd(std::size_t position) const;

    bool operator==(const MarkedText&) const = default;

  private:
    std::u16string text_;
    std::vector<CharFormat> formats_;  // as long as text_
};

}  // namespace varno
