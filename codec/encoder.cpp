#include "codec/encoder.h"

#include <utility>

#include "codec/pieces.h"
#include "codec/windows1252.h"

namespace varno {
namespace {

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
        const Piece piece = PieceAt(ticket_, next_);
        begin_ = piece.start;
        next_ = piece.end;
        if (piece.kind == Piece::Kind::Text) {
            WriteText(ticket_.At(begin_));
        } else if (piece.code) {
            Write(*piece.code);
        }
    }

    void WriteText(char16_t character) {
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
