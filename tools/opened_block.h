// The files that a command works on. "-" is standard input, or standard output.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "block/ticket_block.h"
#include "platform/files.h"

namespace varno {

bool IsStandardInput(const std::string& path);
bool IsStandardOutput(const std::string& path);

// The first `most` bytes of the file, or a refusal.
std::string Contents(const std::string& path, std::size_t most);

// All of a file that may be a text, or a refusal: one that is cut off would lack tickets.
std::string WholeText(const std::string& path);

// The file that the path means whatever its letter case.
std::string PathMeantBy(const std::string& path);

// Nobody else changes the file from now on until the lock is gone. Refuses what cannot be read and
// written again.
void TakeToChange(FileLock& lock, const std::string& path);

// Writes the file, or refuses.
void Deliver(const std::string& path, std::string_view bytes);

enum class Purpose {
    Read,
    Change,  // nobody else changes the file from now on until the object is gone
    Make,    // likewise; a file that does not exist reads as a block without tickets
};

// A block file that a command works on.
class OpenedBlock {
  public:
    explicit OpenedBlock(const std::string& path, Purpose purpose = Purpose::Read);

    const std::vector<int>& Numbers() const { return numbers_; }  // of its tickets, ascending
    bool Holds(int number) const;
    void RequireTicket(int number) const;

    void RequireWhole() const;  // to be changed at all
    void RequireSound() const;

    // Its digits become capitals: what was changed is written so, and a block does not mix them.
    // Also tells which keys no longer print the ticket that they printed.
    void Save() const;

    TicketBlock Block;

  private:
    FileLock lock_;
    std::string path_;
    std::vector<int> numbers_;
    KeyTickets keyTicketBefore_{};
};

}  // namespace varno
