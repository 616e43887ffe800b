#include "block/ticket_block.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace varno {

namespace {

// Part of an image, by positions; `end` is the first position behind it.
struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// Position of a key word, given that of the end marker.
std::size_t KeyWordPosition(std::size_t endMarker, std::size_t key) {
    return endMarker + WordDigits * (key + 1);
}

// The memory up to and including the key words, without the fill; completed if the image is cut.
std::string MemoryThroughKeyWords(const std::string& image, std::size_t endMarker) {
    const std::size_t digits = endMarker - FirstWord + EndMarkerDigits;
    std::string memory = image.substr(1, digits);
    memory.resize(digits, '0');
    return memory;
}

// Position behind the memory of an image that has no end marker; what follows the memory is
// recognised by the image's length.
std::size_t MemoryEnd(const std::string& image) {
    const std::size_t end = image.size() + 1;
    return image.size() > ImageLength ? end : std::min(end, MemoryDigits + FirstWord);
}

void WriteKeyWord(std::string& memory, std::size_t endMarker, std::size_t key, int ticketNumber) {
    memory.replace(KeyWordPosition(endMarker, key) - FirstWord, WordDigits,
                   WordHex(static_cast<Word>(ticketNumber)));
}

// The record, header to ticket end, among the words in front of `limit`; empty if there is none.
Range FindRecord(std::string_view image, int ticketNumber, std::size_t limit) {
    std::size_t start = 0;
    for (std::size_t p = FirstWord; p < limit; p += WordDigits) {
        const Word word = WordAt(image, p);
        if (ClassOf(word) == TicketHeaderClass && ValueOf(word) == ticketNumber) {
            start = p;
        } else if (ClassOf(word) == TicketEndClass && start > 0) {
            return {start, p + WordDigits};
        }
    }
    return start > 0 ? Range{start, limit} : Range{};
}

}  // namespace

bool TicketBlock::LocateEndMarker() {
    const std::size_t endMarker = FindEndMarker(TicketBuffer);
    if (endMarker == 0) {
        return false;
    }
    constexpr std::size_t most = std::numeric_limits<int>::max();
    BufferUsed = static_cast<int>(std::min(endMarker - FirstWord, most));
    BufferFree = RecordCapacity - BufferUsed;
    return true;
}

std::vector<int> TicketBlock::Tickets() const {
    std::vector<int> tickets;
    const std::size_t endMarker = FindEndMarker(TicketBuffer);
    const std::size_t limit = endMarker > 0 ? endMarker : TicketBuffer.size() + 1;
    for (std::size_t p = FirstWord; p < limit; p += WordDigits) {
        const Word word = WordAt(TicketBuffer, p);
        if (ClassOf(word) == TicketHeaderClass) {
            tickets.push_back(ValueOf(word));
        }
    }
    return tickets;
}

void TicketBlock::LoadKeys() {
    const std::size_t endMarker = FindEndMarker(TicketBuffer);
    for (std::size_t key = 0; endMarker > 0 && key < KeyCount; ++key) {
        KeyTicket[key] = WordValueAt(TicketBuffer, KeyWordPosition(endMarker, key));
    }
}

int TicketBlock::KeyOf(int ticketNumber) const {
    const auto key = std::find(KeyTicket.begin(), KeyTicket.end(), ticketNumber);
    return key == KeyTicket.end() ? NoKey : static_cast<int>(key - KeyTicket.begin());
}

PutResult TicketBlock::PutRecord(int ticketNumber, std::string_view record) {
    if (!IsImage(TicketBuffer)) {
        TicketBuffer = NewTicketBuffer();
    }
    if (!LocateEndMarker() || std::ssize(record) > BufferFree) {
        return PutResult::TooBig;
    }
    RemoveTicketRecord(ticketNumber);
    const std::size_t endMarker = FindEndMarker(TicketBuffer);
    TicketBuffer =
        SealTicketBuffer(std::string(record) + MemoryThroughKeyWords(TicketBuffer, endMarker));
    BlockChanged = true;
    return PutResult::Put;
}

void TicketBlock::RemoveTicketRecord(int ticketNumber) {
    const std::size_t endMarker = FindEndMarker(TicketBuffer);
    const std::size_t limit = endMarker > 0 ? endMarker : MemoryEnd(TicketBuffer);
    const Range record = FindRecord(TicketBuffer, ticketNumber, limit);
    LocateEndMarker();
    BlockChanged = true;
    if (record.begin == 0) {
        return;
    }
    std::string memory = endMarker > 0 ? MemoryThroughKeyWords(TicketBuffer, endMarker)
                                       : TicketBuffer.substr(1, limit - FirstWord);
    for (std::size_t key = 0; endMarker > 0 && key < KeyCount; ++key) {
        const std::size_t at = KeyWordPosition(endMarker, key) - FirstWord;
        if (HexAt(memory, at, WordDigits) == static_cast<unsigned>(ticketNumber)) {
            WriteKeyWord(memory, endMarker, key, 0);
        }
    }
    std::replace(KeyTicket.begin(), KeyTicket.end(), ticketNumber, 0);
    memory.erase(record.begin - FirstWord, record.end - record.begin);
    TicketBuffer = SealTicketBuffer(std::move(memory));
}

void TicketBlock::SetKeys(const KeyTickets& keys) {
    KeyTicket = keys;
    BlockChanged = true;
    const std::size_t endMarker = FindEndMarker(TicketBuffer);
    if (endMarker == 0) {
        return;
    }
    std::string memory = MemoryThroughKeyWords(TicketBuffer, endMarker);
    for (std::size_t key = 0; key < KeyCount; ++key) {
        WriteKeyWord(memory, endMarker, key, KeyTicket[key]);
    }
    TicketBuffer = SealTicketBuffer(std::move(memory));
}

void TicketBlock::Bind(int ticketNumber, int key) {
    KeyTickets keys = KeyTicket;
    std::replace(keys.begin(), keys.end(), ticketNumber, 0);
    if (key != NoKey) {
        keys[static_cast<std::size_t>(key)] = ticketNumber;
    }
    SetKeys(keys);
}

}  // namespace varno
