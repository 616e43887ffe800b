#include "paper/layout.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "codec/code_name.h"
#include "codec/windows1252.h"

namespace varno {
namespace {

// The character that a word prints by itself; 0 if it is none.
char16_t CharacterOf(Word word) {
    if (word > 0xFF || !IsPrinted(static_cast<unsigned char>(word))) {
        return 0;
    }
    return FromWindows1252(static_cast<unsigned char>(word));
}

std::u16string BoxName(Word word) {
    const std::string name = "[" + CodeName(word) + "]";
    return {name.begin(), name.end()};
}

// The state of the printer, and the row that it is printing.
class Printer {
  public:
    explicit Printer(const Effects& effects) : effects_(effects) {
        paper_.width = std::clamp(effects.paperWidth, MinPaperWidth, MaxPaperWidth);
        Reset();
    }

    Paper Print(std::span<const Word> body) {
        for (; index_ < body.size(); ++index_) {
            word_ = body[index_];
            const bool isPair =
                index_ + 1 < body.size() && word_ == '\r' && body[index_ + 1] == '\n';
            if (isPair) {
                EndLineAtPair();
            } else {
                PrintWord();
            }
        }
        if (!row_.cells.empty()) {
            EndLine(index_);
        }
        paper_.words = body.size();
        paper_.stylesLeft = styles_;
        return std::move(paper_);
    }

  private:
    void Reset() {
        styles_ = 0;
        place_ = {effects_.side, 0};
    }

    void EndLineAtPair() {
        EndLine(index_ + 2);
        ++index_;
    }

    void PrintWord() {
        if (const auto code = effects_.codes.find(word_); code != effects_.codes.end()) {
            for (const Effect& effect : code->second) {
                CarryOut(effect);
            }
            return;
        }
        if (const auto value = effects_.values.find(word_); value != effects_.values.end()) {
            return PutText(value->second.Filled(), styles_, PaperCell::Origin::Sample);
        }
        if (const char16_t character = CharacterOf(word_); character != 0) {
            return Put(character, styles_,
                       word_ <= '~' ? PaperCell::Origin::Text : PaperCell::Origin::AsciiCode);
        }
        PutBox();
    }

    // Carries out one effect of a code.
    void CarryOut(const Effect& effect) {
        switch (effect.kind) {
            case Effect::Kind::Nothing:
                return;
            case Effect::Kind::StyleOn:
                styles_ |= static_cast<unsigned>(effect.argument);
                return;
            case Effect::Kind::StyleOff:
                styles_ &= ~static_cast<unsigned>(effect.argument);
                return;
            case Effect::Kind::Align:
                place_.side = static_cast<Side>(effect.argument);
                return;
            case Effect::Kind::Margin:
                place_.margin = effect.argument;
                return;
            case Effect::Kind::Tab:
                return TabTo(effect.argument);
            case Effect::Kind::Feed:
                return Feed(effect.argument);
            case Effect::Kind::Cut:
                return Cut();
            case Effect::Kind::Reset:
                return Reset();
        }
    }

    // The columns that the row may take. A margin leaves the least paper there is.
    int Room() const {
        return std::max(paper_.width - rowPlace_.value_or(place_).margin, MinPaperWidth);
    }

    // Does nothing to a line that is there already, and stays on the paper.
    void TabTo(int column) {
        const int columns = std::min(column - 1, Room());
        while (row_.columns < columns) {
            Put(u' ', 0, PaperCell::Origin::Tab);
        }
    }

    void PutText(const std::u16string& text, unsigned styles, PaperCell::Origin origin) {
        for (const char16_t character : text) {
            Put(character, styles, origin);
        }
    }

    // In one piece.
    void PutBox() {
        const std::u16string name = BoxName(word_);
        MakeRoom(static_cast<int>(name.size()));
        PutText(name, 0, PaperCell::Origin::Box);
    }

    // Breaks the line if it has not so many columns left.
    void MakeRoom(int columns) {
        if (row_.columns + columns <= Room()) {
            return;
        }
        row_.breaks = true;
        EndLine(index_);
    }

    void Put(char16_t character, unsigned styles, PaperCell::Origin origin) {
        const PaperCell cell = {character, word_, index_, styles, origin};
        MakeRoom(cell.Columns());
        if (!rowPlace_ && origin != PaperCell::Origin::Box) {
            rowPlace_ = place_;
        }
        row_.cells.push_back(cell);
        row_.columns += cell.Columns();
    }

    // `next`: the word that the next row begins with.
    void EndLine(std::size_t next) {
        const int most = paper_.width - row_.columns;
        const int margin = std::min(paper_.width - Room(), most);
        const Side side = rowPlace_.value_or(place_).side;
        row_.indent = margin;
        if (side == Side::Centre) {
            row_.indent += (most - margin) / 2;
        }
        if (side == Side::Right) {
            row_.indent = most;
        }
        EndRow(next);
    }

    void EndRow(std::size_t next) {
        row_.end = index_;
        paper_.rows.push_back(std::exchange(row_, {}));
        row_.begin = next;
        rowPlace_.reset();
    }

    // Ends the line if there is one; that is the first of the lines fed.
    void Feed(int lines) {
        if (!row_.cells.empty()) {
            EndLine(index_ + 1);
            --lines;
        }
        if (lines == 0) {
            return;
        }
        row_.kind = PaperRow::Kind::Feed;
        row_.feed = lines;
        EndRow(index_ + 1);
    }

    void Cut() {
        if (!row_.cells.empty()) {
            EndLine(index_);
        }
        row_.kind = PaperRow::Kind::Cut;
        EndRow(index_ + 1);
    }

    // What lines that begin from now on take.
    struct LinePlace {
        Side side = Side::Left;
        int margin = 0;  // columns
    };

    const Effects& effects_;
    Paper paper_;
    PaperRow row_;
    std::optional<LinePlace> rowPlace_;  // of the row; none until something but boxes is on it
    LinePlace place_;
    unsigned styles_ = 0;
    std::size_t index_ = 0;  // of the word being printed
    Word word_ = 0;
};

}  // namespace

Paper LayOut(std::span<const Word> body, const Effects& effects) {
    return Printer(effects).Print(body);
}

}  // namespace varno
