// A block file that a command works on.
#pragma once

#include <string>
#include <vector>

#include "block/ticket_block.h"
#include "platform/error.h"

namespace varno {

// Throws the refusal that an error of the system is.
void Require(const Error& error);

// The bytes of a file, or a refusal.
std::string Contents(const std::string& path);

class BlockFile {
  public:
    // Reads the file. One that does not exist reads as a block without tickets if `maybeNew`.
    explicit BlockFile(const std::string& path, bool maybeNew = false);

    const std::vector<int>& Numbers() const { return numbers_; }  // of its tickets, ascending
    bool Holds(int number) const;
    void RequireTicket(int number) const;

    // A change would seal a damaged block as if it were sound; so it is refused, unless `force`.
    void RequireSound(bool force) const;

    void Save() const;

    TicketBlock Block;

  private:
    std::string path_;
    std::vector<int> numbers_;
};

}  // namespace varno
