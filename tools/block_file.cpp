#include "tools/block_file.h"

#include <algorithm>

#include "platform/files.h"
#include "tools/check.h"
#include "tools/refusal.h"

namespace varno {

void Require(const Error& error) {
    if (error) throw Refusal(*error);
}

std::string Contents(const std::string& path) {
    std::string bytes;
    Require(ReadFile(path, bytes));
    return bytes;
}

BlockFile::BlockFile(const std::string& path, bool maybeNew) : path_(FileMeantBy(path)) {
    if (maybeNew && !FileExists(path_))
        Block.TicketBuffer = NewTicketBuffer();
    else
        Block.TicketBuffer = ImageIn(Contents(path_));
    numbers_ = Block.ReadTickets();
    std::sort(numbers_.begin(), numbers_.end());
}

bool BlockFile::Holds(int number) const {
    return std::binary_search(numbers_.begin(), numbers_.end(), number);
}

void BlockFile::RequireTicket(int number) const {
    if (!Holds(number)) throw Refusal(path_ + ": there is no ticket " + std::to_string(number));
}

void BlockFile::RequireSound(bool force) const {
    if (!IsImage(Block.TicketBuffer) || FindEndMarker(Block.TicketBuffer) == 0)
        throw Refusal(path_ + ": this is no ticket block");
    if (!force && !FaultsInImage(Block.TicketBuffer).empty())
        throw Refusal(path_ +
                      ": the block is damaged (varno-tickets check tells how); --force "
                      "changes it all the same");
}

void BlockFile::Save() const {
    Require(WriteFile(path_, Block.TicketBuffer + "\r\n"));
}

}  // namespace varno
