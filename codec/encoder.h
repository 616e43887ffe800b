// Marked text to ticket record.
#pragma once

#include <string>
#include <vector>

#include "codec/marked_text.h"
#include "codec/word.h"

namespace varno {

// A body word, and the position of the character or of the mark's letter that it stands for.
struct PlacedWord {
    Word word;
    std::size_t position;
};

// The words of the record's body. What a ticket cannot carry (comments, other colours, stray
// coloured characters, control characters in black, control and print code numbers above 2047) is
// left out.
std::vector<PlacedWord> EncodeBody(const MarkedText& ticket);

// The record as hexadecimal text: header word, body words, ticket-end word, without separators.
std::string EncodeTicket(const MarkedText& ticket, int ticketNumber);

}  // namespace varno
