#include "codec/decoder.h"

#include "codec/code_name.h"
#include "codec/insert.h"

namespace varno {
namespace {

// The digits of a code, as its mark has them.
std::u16string Digits(Word code) {
    const std::string name = CodeName(code);
    return {name.begin() + 1, name.end()};
}

// Lays out the pieces of a ticket in an editor that was empty, the caret always at the end.
class TicketWriter {
  public:
    explicit TicketWriter(MarkedEditor& editor) : editor_(editor) {}

    void Text(char16_t character) {
        InsertPlain(editor_, {&character, 1});
        lineStart_ = false;
    }

    void LineEnd() {
        InsertPlain(editor_, LineEndMarker + std::u16string(LineBreak));
        lineStart_ = true;
    }

    void AsciiMark(Word code) {
        InsertAsciiMark(editor_, Digits(code));
        lineStart_ = false;
    }

    // With the green space that keeps text typed behind it apart from the mark.
    void AsciiMarkApart(Word code) {
        AsciiMark(code);
        InsertComment(editor_, u" ");
        InsertPlain(editor_);
    }

    using InsertProcedure = void (*)(MarkedEditor&, std::u16string_view);
    void CodeLine(InsertProcedure insertMark, Word code, std::u16string_view comment) {
        if (!lineStart_) {
            InsertPlain(editor_, LineBreak);
        }
        insertMark(editor_, Digits(code));
        InsertComment(editor_, comment);
        InsertPlain(editor_, LineBreak);
        lineStart_ = true;
    }

  private:
    MarkedEditor& editor_;
    bool lineStart_ = true;  // the text is empty or ends with a line break
};

// Shows a character word; answers whether a CR now waits for its LF.
bool ShowCharacter(TicketWriter& ticket, Word value, bool pendingCR) {
    if (value == '\r') {
        return true;
    }
    if (value == '\n' && pendingCR) {
        ticket.LineEnd();
    } else if (value == '\n') {
        ticket.AsciiMark(value);
    } else if (value == ' ') {
        ticket.Text(SpaceMarker);
    } else if (value > ' ' && value <= '~') {
        ticket.Text(static_cast<char16_t>(value));
    } else {
        ticket.AsciiMarkApart(value);
    }
    return false;
}

}  // namespace

void TicketDecoder::DecodeTicket(std::span<const Word> words, int ticketNumber,
                                 const Catalogues& catalogues, MarkedEditor& editor) {
    TicketWriter ticket(editor);
    bool inside = false;
    for (const Word word : words) {
        const int wordClass = ClassOf(word);
        const int value = ValueOf(word);
        if (!inside) {
            inside = wordClass == TicketHeaderClass && value == ticketNumber;
            continue;
        }
        if (pendingCR_ && !(wordClass == CharacterClass && value == '\n')) {
            pendingCR_ = false;
            ticket.AsciiMark('\r');
        }
        if (wordClass == TicketEndClass) {
            return;
        }
        if (wordClass == CharacterClass) {
            pendingCR_ = ShowCharacter(ticket, word, pendingCR_);
        } else if (wordClass == ControlCodeClass) {
            ticket.CodeLine(InsertControlMark, word, FindCodeComment(catalogues, word));
        } else if (wordClass == PrintCodeClass) {
            ticket.CodeLine(InsertPrintMark, word, FindCodeComment(catalogues, word));
        }
    }
}

}  // namespace varno
