#include "simulator/print.h"

#include <algorithm>
#include <span>
#include <vector>

#include "block/image.h"
#include "codec/catalogue.h"
#include "codec/utf8.h"
#include "codec/windows1252.h"

namespace varno {

namespace {

// The body words of the record.
std::vector<Word> BodyOf(std::string_view image, int ticketNumber) {
    std::vector<Word> body;
    bool inside = false;
    for (const Word word : WordsOf(image)) {
        const int wordClass = ClassOf(word);
        if (wordClass == EndMarkerClass || (inside && wordClass == TicketEndClass)) {
            break;
        }
        if (wordClass == TicketHeaderClass) {
            inside = ValueOf(word) == ticketNumber;
        } else if (inside) {
            body.push_back(word);
        }
    }
    return body;
}

std::string CodeShown(char letter, int number, const std::string& catalogue) {
    std::string code = std::to_string(number);
    code.insert(0, code.size() < 3 ? 3 - code.size() : 0, '0');
    std::string comment = ToUtf8(FindCodeComment(catalogue, code));
    comment.erase(0, comment.find_first_not_of(' '));
    return "<" + (comment.empty() ? letter + code : comment) + ">";
}

std::string CharacterShown(int code) {
    if (code == '\r') {
        return "";  // the LF behind it ends the line
    }
    if (code == '\n') {
        return "\n";
    }
    if (code < ' ' || code > 0xFF) {
        return "<A" + std::to_string(code) + ">";
    }
    return ToUtf8(std::u16string(1, FromWindows1252(static_cast<unsigned char>(code))));
}

std::string WordShown(Word word, const Catalogues& catalogues) {
    switch (ClassOf(word)) {
        case ControlCodeClass:
            return CodeShown('C', ValueOf(word), catalogues.controlCodes);
        case PrintCodeClass:
            return CodeShown('P', ValueOf(word), catalogues.printCodes);
        case CharacterClass:
            return CharacterShown(ValueOf(word));
        default:
            return "<" + WordHex(word) + ">";
    }
}

}  // namespace

std::string PrintedTicket(std::string_view image, int ticketNumber, const Catalogues& catalogues) {
    std::string text;
    for (const Word word : BodyOf(image, ticketNumber)) {
        text += WordShown(word, catalogues);
    }
    return text;
}

}  // namespace varno
