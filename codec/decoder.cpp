#include "codec/decoder.h"

#include "codec/catalogue.h"
#include "codec/insert.h"

namespace varno {
namespace {

std::u16string Decimal(int number, std::size_t minDigits = 1) {
    std::u16string digits;
    for (; number > 0 || digits.size() < minDigits; number /= 10)
        digits.insert(digits.begin(), static_cast<char16_t>(u'0' + number % 10));
    return digits;
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

    void AsciiMark(int number) {
        InsertAsciiMark(editor_, Decimal(number));
        lineStart_ = false;
    }

    // With the green space that keeps text typed behind it apart from the mark.
    void AsciiMarkApart(int number) {
        AsciiMark(number);
        InsertComment(editor_, u" ");
        InsertPlain(editor_);
    }

    using InsertProcedure = void (*)(MarkedEditor&, std::u16string_view);
    void CodeLine(InsertProcedure insertMark, const std::u16string& code,
                  std::u16string_view comment) {
        if (!lineStart_) InsertPlain(editor_, LineBreak);
        insertMark(editor_, code);
        InsertComment(editor_, comment);
        InsertPlain(editor_, LineBreak);
        lineStart_ = true;
    }

  private:
    MarkedEditor& editor_;
    bool lineStart_ = true;  // the text is empty or ends with a line break
};

void ShowCode(TicketWriter& ticket, TicketWriter::InsertProcedure insertMark, int number,
              const std::string& catalogue) {
    const std::u16string code = Decimal(number, CodeDigits);
    ticket.CodeLine(insertMark, code,
                    FindCodeComment(catalogue, std::string(code.begin(), code.end())));
}

// Shows a character word; answers whether a CR now waits for its LF.
bool ShowCharacter(TicketWriter& ticket, int value, bool pendingCR) {
    if (value == '\r') return true;
    if (value == '\n' && pendingCR)
        ticket.LineEnd();
    else if (value == '\n')
        ticket.AsciiMark(value);
    else if (value == ' ')
        ticket.Text(SpaceMarker);
    else if (value > ' ' && value <= '~')
        ticket.Text(static_cast<char16_t>(value));
    else
        ticket.AsciiMarkApart(value);
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
        if (wordClass == TicketEndClass) return;
        if (wordClass == CharacterClass)
            pendingCR_ = ShowCharacter(ticket, value, pendingCR_);
        else if (wordClass == ControlCodeClass)
            ShowCode(ticket, InsertControlMark, value, catalogues.controlCodes);
        else if (wordClass == PrintCodeClass)
            ShowCode(ticket, InsertPrintMark, value, catalogues.printCodes);
    }
}

}  // namespace varno
