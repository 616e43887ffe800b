#include "codec/encoder.h"

#include <algorithm>
#include <utility>

#include "codec/windows1252.h"

namespace varno {
namespace {

// A coloured letter with the digits behind it that stands for one word.
struct Mark {
    Colour colour;
    char16_t letter;
    Word base;
    std::size_t maxDigits;
};

constexpr Mark Marks[] = {
    {AsciiCodeColour, u'A', 0, 3},
    {ControlCodeColour, u'C', ControlCode, std::u16string_view::npos},
    {PrintCodeColour, u'P', PrintCode, std::u16string_view::npos},
};

class Encoder {
  public:
    explicit Encoder(const MarkedText& ticket) : ticket_(ticket) {}

    std::vector<PlacedWord> Encode() {
        while (next_ < ticket_.Length()) {
            EncodeNext();
        }
        return std::move(body_);
    }

  private:
    void Write(int word) { body_.push_back({static_cast<Word>(word), begin_}); }

    void EncodeNext() {
        begin_ = next_;
        const char16_t character = ticket_.At(next_);
        const Colour colour = ticket_.FormatAt(next_).colour;
        ++next_;
        if (colour == TextColour) {
            return WriteText(character);
        }
        for (const Mark& mark : Marks) {
            if (colour == mark.colour && character == mark.letter) {
                return WriteMark(mark);
            }
        }
    }

    void WriteText(char16_t character) {
        if (character < u' ') {
            return;
        }
        if (character == SpaceMarker) {
            return Write(u' ');
        }
        if (character == LineEndMarker) {
            Write(u'\r');
            return Write(u'\n');
        }
        if (IsSecondHalf(character)) {
            return;  // one "?" stands for both halves
        }
        Write(ToWindows1252(character));
    }

    // Whether the character just read completes a surrogate pair of black text.
    bool IsSecondHalf(char16_t character) const {
        if ((character & 0xFC00) != 0xDC00 || next_ < 2) {
            return false;
        }
        return (ticket_.At(next_ - 2) & 0xFC00) == 0xD800 &&
               ticket_.FormatAt(next_ - 2).colour == TextColour;
    }

    void WriteMark(const Mark& mark) {
        int number = 0;  // stays at MaxWordValue + 1 once it is too large for a word
        for (std::size_t digits = 0; digits < mark.maxDigits && IsDigitOf(mark); ++digits) {
            number = std::min(number * 10 + (ticket_.At(next_++) - u'0'), MaxWordValue + 1);
        }
        if (number <= MaxWordValue) {
            Write(mark.base + number);
        }
    }

    bool IsDigitOf(const Mark& mark) const {
        return next_ < ticket_.Length() && ticket_.At(next_) >= u'0' && ticket_.At(next_) <= u'9' &&
               ticket_.FormatAt(next_).colour == mark.colour;
    }

    const MarkedText& ticket_;
    std::size_t next_ = 0;
    std::size_t begin_ = 0;  // of the character or mark being encoded
    std::vector<PlacedWord> body_;
};

}  // namespace

std::vector<PlacedWord> EncodeBody(const MarkedText& ticket) {
    return Encoder(ticket).Encode();
}

std::string EncodeTicket(const MarkedText& ticket, int ticketNumber) {
    const std::vector<PlacedWord> body = EncodeBody(ticket);
    std::string record;
    record.reserve((body.size() + 2) * WordDigits);
    record += WordHex(static_cast<Word>(TicketHeader + ticketNumber));
    for (const PlacedWord& placed : body) {
        record += WordHex(placed.word);
    }
    return record + WordHex(TicketEnd);
}

}  // namespace varno
