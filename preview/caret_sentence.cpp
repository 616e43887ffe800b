#include "preview/caret_sentence.h"

#include <algorithm>

#include "codec/code_name.h"
#include "codec/pieces.h"
#include "codec/text_steps.h"
#include "codec/utf8.h"
#include "paper/look.h"
#include "preview/previewed_ticket.h"

namespace varno {
namespace {

std::string Quoted(std::u16string_view text) {
    return "\"" + ToUtf8(text) + "\"";
}

// Cuts are between lines.
std::string PlaceInWords(const Paper& paper, const PaperPlace& place) {
    int line = 1;
    for (std::size_t row = 0; row < place.row; ++row) {
        line += paper.rows[row].kind == PaperRow::Kind::Cut ? 0 : LinesOf(paper.rows[row]);
    }
    return "Printed line " + std::to_string(line) + ", column " + std::to_string(place.column + 1) +
           " of the paper. ";
}

// The cells that a word printed.
std::vector<PaperCell> PrintedBy(const Paper& paper, std::size_t index) {
    std::vector<PaperCell> printed;
    for (std::size_t row = PlaceOf(paper, index).row; row < paper.rows.size(); ++row) {
        for (const PaperCell& cell : paper.rows[row].cells) {
            if (cell.index == index) {
                printed.push_back(cell);
            }
        }
        if (paper.rows[row].end > index) {
            break;
        }
    }
    return printed;
}

std::u16string TextOf(const std::vector<PaperCell>& cells) {
    std::u16string text;
    for (const PaperCell& cell : cells) {
        text += cell.character;
    }
    return text;
}

std::string DeedOf(const std::vector<PaperCell>& printed) {
    if (printed.empty()) {
        return "prints nothing";
    }
    switch (printed.front().origin) {
        case PaperCell::Origin::Box:
            return "has an effect on the paper that is not known";
        case PaperCell::Origin::Sample:
            return "prints a value such as " + Quoted(TextOf(printed));
        case PaperCell::Origin::Text:
        case PaperCell::Origin::AsciiCode:
        case PaperCell::Origin::Tab:
            break;
    }
    return "prints " + Quoted(TextOf(printed));
}

// "Control code 005"
std::string NameOf(const Piece& piece, const MarkedText& ticket) {
    const std::string number =
        piece.code ? CodeName(*piece.code).substr(1)
                   : ToUtf8(ticket.Text().substr(piece.start + 1, piece.end - piece.start - 1));
    const std::string kind = piece.kind == Piece::Kind::Control ? "Control"
                             : piece.kind == Piece::Kind::Print ? "Print"
                                                                : "ASCII";
    return kind + " code " + number;
}

std::string LeftOutInWords(const MarkedText& ticket, std::size_t at) {
    if (ticket.At(at) == u'\r' || ticket.At(at) == u'\n') {
        return "The end of the line in the editor, which prints nothing.";
    }
    const Colour colour = ticket.FormatAt(at).colour;
    const std::string what = colour == CommentColour ? "A comment"
                             : colour == TextColour  ? "A control character"
                                                     : "Coloured text that is no code";
    return what + ", which is not in the ticket.";
}

Piece PieceAround(const MarkedText& ticket, std::size_t caret) {
    Piece piece = PieceAt(ticket, 0);
    while (piece.end <= caret) {
        piece = PieceAt(ticket, piece.end);
    }
    return piece;
}

// A ticket, and the piece of it that the caret is at.
class Caret {
  public:
    Caret(const MarkedText& ticket, std::size_t at, const Effects& effects)
        : ticket_(ticket),
          effects_(effects),
          shown_(PreviewOf(ticket, effects)),
          piece_(PieceAround(ticket, at)) {}

    std::string Sentence(const CodeComment& comment) const {
        return PlaceInWords(shown_.paper, PlaceOfCaret(shown_, piece_.start)) +
               PieceInWords(comment);
    }

  private:
    std::string PieceInWords(const CodeComment& comment) const {
        if (piece_.kind == Piece::Kind::Text) {
            return CharacterInWords();
        }
        if (!piece_.IsCode()) {
            return LeftOutInWords(ticket_, piece_.start);
        }
        const std::string name = NameOf(piece_, ticket_);
        if (!piece_.code) {
            return name + " is not in the ticket: its number is above " +
                   std::to_string(MaxWordValue) + ".";
        }
        const std::string said = comment(*piece_.code);
        return name + (said.empty() ? " " : ", " + said + ", ") + CodeInWords() + ".";
    }

    std::string CharacterInWords() const {
        const char16_t character = ticket_.At(piece_.start);
        if (character == LineEndMarker) {
            return "The end of the printed line.";
        }
        if (character == SpaceMarker || character == u' ') {
            return "A space.";
        }
        const std::size_t end = NextCharacter(ticket_, piece_.start);
        const std::u16string written = ticket_.Text().substr(piece_.start, end - piece_.start);
        const std::vector<PaperCell> printed = Printed();
        const bool asWritten = TextOf(printed) == written;
        return "The character " + Quoted(written) + (asWritten ? "." : " " + DeedOf(printed) + ".");
    }

    // "switches bold on"
    std::string CodeInWords() const {
        const auto known = effects_.codes.find(*piece_.code);
        return known != effects_.codes.end() ? InWords(known->second) : DeedOf(Printed());
    }

    std::vector<PaperCell> Printed() const {
        const auto& places = shown_.positions;
        const auto own = std::lower_bound(places.begin(), places.end(), piece_.start);
        return PrintedBy(shown_.paper, static_cast<std::size_t>(own - places.begin()));
    }

    const MarkedText& ticket_;
    const Effects& effects_;
    PreviewedTicket shown_;
    Piece piece_;
};

}  // namespace

std::string CaretSentence(const MarkedText& ticket, std::size_t caret, const Effects& effects,
                          const CodeComment& comment) {
    if (ticket.Empty()) {
        return "The ticket is empty.";
    }
    if (caret >= ticket.Length()) {
        const PreviewedTicket shown = PreviewOf(ticket, effects);
        return PlaceInWords(shown.paper, PlaceOfCaret(shown, caret)) + "The end of the ticket.";
    }
    return Caret(ticket, caret, effects).Sentence(comment);
}

}  // namespace varno
