// The working state of the ticket block and what can be done to it. Each change seals the image.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "block/image.h"
#include "block/rows.h"

namespace varno {

enum class PutResult { Put, TooBig };

struct TicketBlock {
    std::string TicketBuffer;   // the image; empty until loaded, received or first put
    int BufferUsed = 0;         // digits of all records, as last located
    int BufferFree = 0;         // digits left for records; negative if far too long
    KeyTickets KeyTicket{};     // as last loaded or bound
    bool BlockChanged = false;  // since the block was last loaded or saved

    // The numbers of all ticket headers in front of the end marker, in their order, repeated if
    // the image repeats them.
    std::vector<int> Tickets() const;

    // Loads KeyTicket from the key words, unless there is no end marker.
    void LoadKeys();

    // The first key that prints the ticket, or NoKey.
    int KeyOf(int ticketNumber) const;

    // Sets BufferUsed and BufferFree. False if there is no end marker: both then stay as they were.
    bool LocateEndMarker();

    // Puts a record in front of all others, in place of the one of its number. It needs room beside
    // that one; an image without an end marker counts as full, and what is no image is replaced by
    // the empty one.
    [[nodiscard]] PutResult PutRecord(int ticketNumber, std::string_view record);

    // Takes out one record and unbinds it from its keys. A record without a ticket end reaches to
    // the end marker. Without a record of that number the image stays.
    void RemoveTicketRecord(int ticketNumber);

    // Binds the keys, in the image too unless it has no end marker.
    void SetKeys(const KeyTickets& keys);
    // The same for one ticket, which then has this key and no other; NoKey: none.
    void Bind(int ticketNumber, int key);
};

}  // namespace varno
