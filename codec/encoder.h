// Marked text to ticket record.
#pragma once

#include <string>

#include "codec/marked_text.h"

namespace varno {

// The record as hexadecimal text: header word, body words, ticket-end word, without separators.
// What a ticket cannot carry (comments, other colours, stray coloured characters, control
// characters in black, control and print code numbers above 2047) is left out.
std::string EncodeTicket(const MarkedText& ticket, int ticketNumber);

}  // namespace varno
