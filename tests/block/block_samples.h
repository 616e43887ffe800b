// Parts of a ticket memory.
#pragma once

#include <string>

#include "block/ticket_block.h"
#include "codec/encoder.h"
#include "tests/codec/picture.h"

namespace varno {

inline std::string Record(int number, const std::string& picture) {
    return EncodeTicket(FromPicture(picture), number);
}

// The end marker and its key words.
inline std::string Tail(const KeyTickets& keys) {
    std::string digits = WordHex(EndMarker);
    for (const int key : keys) {
        digits += WordHex(static_cast<Word>(key));
    }
    return digits;
}

inline TicketBlock BlockOf(const std::string& image) {
    TicketBlock block{.TicketBuffer = image};
    block.LoadKeys();
    return block;
}

}  // namespace varno
