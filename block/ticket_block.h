// The working state of the ticket block and what can be done to it.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "block/image.h"
#include "block/rows.h"

namespace varno {

struct TicketBlock {
    std::string TicketBuffer;               // the image; empty until loaded, received or first put
    int BufferUsed = 0;                     // digits of all records, as last located
    int BufferFree = 0;                     // digits left for records; negative if far too long
    std::array<int, KeyCount> KeyTicket{};  // the ticket bound to each key, 0 for none
    bool BlockChanged = false;              // since the block was last loaded or saved

    // Sets BufferUsed and BufferFree. False if there is no end marker: both then stay as they were.
    bool LocateEndMarker();

    // The numbers of all ticket headers in front of the end marker, in their order, repeated if
    // the image repeats them. Loads KeyTicket, unless there is no end marker.
    std::vector<int> ReadTickets();

    // Takes out one record, unbinds it from its keys and seals the image. A record without a ticket
    // end reaches to the end marker. Without a record of that number nothing changes.
    void RemoveTicketRecord(int ticketNumber);

    // Puts a record that fits in front of all others and seals the image. The end marker must have
    // been located, at the latest before an older record of the same number was removed.
    void PutRecordFirst(std::string_view record);

    // Writes KeyTicket into the key words and seals the image, unless there is no end marker.
    void WriteKeyWords();
};

}  // namespace varno
