// Every command on any image: it does to the tickets what it should, and what it changes is sealed.
#include <algorithm>

#include "block/ticket_block.h"
#include "codec/decoder.h"
#include "codec/encoder.h"
#include "fuzz/fuzz.h"

namespace varno {
namespace {

void MustBeSealed(const std::string& image) {
    Must(IsImage(image) && SealTicketBuffer(image.substr(1, image.size() - 7)) == image);
}

std::ptrdiff_t Count(const TicketBlock& block, int number) {
    const std::vector<int> tickets = block.Tickets();
    return std::count(tickets.begin(), tickets.end(), number);
}

void Remove(TicketBlock& block, int number) {
    const TicketBlock before = block;
    block.RemoveTicketRecord(number);
    if (Count(before, number) == 0) {
        return Must(block.TicketBuffer == before.TicketBuffer);
    }
    MustBeSealed(block.TicketBuffer);
    // Without an end marker the words of the checksum, which is new, are read as tickets too.
    if (FindEndMarker(before.TicketBuffer) > 0) {
        Must(Count(block, number) == Count(before, number) - 1);
    }
}

void Put(TicketBlock& block, int number, const std::string& record) {
    const bool isImage = IsImage(block.TicketBuffer);
    const TicketBlock before = block;
    if (block.PutRecord(number, record) == PutResult::TooBig) {
        return Must(block.TicketBuffer == before.TicketBuffer || !isImage);
    }
    const auto others = isImage ? std::max<std::ptrdiff_t>(Count(before, number) - 1, 0) : 0;
    Must(block.Tickets().at(0) == number && Count(block, number) == others + 1);
    MustBeSealed(block.TicketBuffer);
}

void Bind(TicketBlock& block, std::size_t key, int number) {
    KeyTickets keys = block.KeyTicket;
    keys.at(key) = number;
    block.SetKeys(keys);
    block.LoadKeys();
    Must(block.KeyTicket == keys);
    if (FindEndMarker(block.TicketBuffer) > 0) {
        MustBeSealed(block.TicketBuffer);
    }
}

}  // namespace
}  // namespace varno

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace varno;
    FuzzedDataProvider in(data, size);
    TicketBlock block;
    block.TicketBuffer = in.ConsumeRandomLengthString();
    if (in.ConsumeBool()) {
        block.TicketBuffer = SealTicketBuffer(block.TicketBuffer);
    }
    block.LoadKeys();
    while (in.remaining_bytes() > 0) {
        const int number = in.ConsumeIntegralInRange(0, 999);
        const auto command = in.ConsumeIntegralInRange<std::size_t>(0, 6);
        if (command == 6) {
            Put(block, number, EncodeTicket(AnyTicket(in), number));
        }
        if (command == 5) {
            Remove(block, number);
        }
        if (command < 4) {
            Bind(block, command, number);
        }
        MemoryEditor shown;
        TicketDecoder().DecodeTicket(WordsOf(block.TicketBuffer), number, {}, shown);
    }
    return 0;
}
