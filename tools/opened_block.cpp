#include "tools/opened_block.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>

#include "block/block_file.h"
#include "codec/text_limits.h"
#include "tools/refusal.h"

namespace varno {
namespace {

constexpr std::size_t ChunkBytes = 1 << 16;

// The first `most` bytes of what comes.
std::string Incoming(std::istream& stream, std::size_t most) {
    std::string bytes;
    std::string chunk(ChunkBytes, '\0');
    while (bytes.size() < most && stream) {
        stream.read(chunk.data(), std::ssize(chunk));
        bytes.append(chunk, 0, static_cast<std::size_t>(stream.gcount()));
    }
    bytes.resize(std::min(bytes.size(), most));
    return bytes;
}

std::string StandardInput(std::size_t most) {
    std::string bytes = Incoming(std::cin, most);
    if (std::ferror(stdin) != 0) {
        throw Refusal(Ending::CouldNot, "the standard input cannot be read");
    }
    return bytes;
}

// What a shell gives a command in place of a file: <(git show HEAD:Plant.VRB).
bool IsPipe(const std::string& path) {
    std::error_code unreachable;  // reading it says why
    return std::filesystem::is_fifo(path, unreachable);
}

std::string InCapitals(std::string image) {
    std::transform(image.begin(), image.end(), image.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return image;
}

}  // namespace

bool IsStandardInput(const std::string& path) {
    return path == "-" || path == "/dev/stdin";
}

bool IsStandardOutput(const std::string& path) {
    return path == "-" || path == "/dev/stdout";
}

std::string Contents(const std::string& path, std::size_t most) {
    if (IsStandardInput(path)) {
        return StandardInput(most);
    }
    if (IsPipe(path)) {
        std::ifstream pipe(path, std::ios::binary);
        if (!pipe) {
            throw Refusal(Ending::CouldNot, path + ": this pipe cannot be read");
        }
        return Incoming(pipe, most);
    }
    std::string bytes;
    Require(ReadFile(path, bytes, most));
    return bytes;
}

std::string WholeText(const std::string& path) {
    std::string bytes = Contents(path, MostTicketFileBytes + 1);
    if (bytes.size() > MostTicketFileBytes) {
        throw Refusal(Ending::FaultFound, path + ": the file is too long");
    }
    return bytes;
}

std::string PathMeantBy(const std::string& path) {
    return IsStandardInput(path) ? path : FileMeantBy(path);
}

void TakeToChange(FileLock& lock, const std::string& path) {
    if (IsStandardInput(path)) {
        return;
    }
    if (IsPipe(path)) {
        throw Refusal(Ending::CouldNot, path + ": a block in a pipe cannot be changed");
    }
    Require(lock.Take(path));
}

void Deliver(const std::string& path, std::string_view bytes) {
    if (IsStandardOutput(path)) {
        std::cout << bytes;
    } else {
        Require(WriteFile(path, bytes));
    }
}

OpenedBlock::OpenedBlock(const std::string& path, Purpose purpose) : path_(PathMeantBy(path)) {
    if (purpose != Purpose::Read) {
        TakeToChange(lock_, path_);
    }
    if (purpose == Purpose::Make && !IsStandardInput(path_) && !FileExists(path_)) {
        Block.TicketBuffer = NewTicketBuffer();
    } else {
        Block.TicketBuffer = ImageIn(Contents(path_, MostBlockFileBytes));
    }
    if (Block.TicketBuffer.empty() || Block.TicketBuffer.front() != ':') {
        throw Refusal(Ending::FaultFound, path_ + ": this is no ticket block");
    }
    Block.LoadKeys();
    numbers_ = Block.Tickets();
    keyTicketBefore_ = Block.KeyTicket;
    std::sort(numbers_.begin(), numbers_.end());
}

bool OpenedBlock::Holds(int number) const {
    return std::binary_search(numbers_.begin(), numbers_.end(), number);
}

void OpenedBlock::RequireTicket(int number) const {
    if (!Holds(number)) {
        throw Refusal(Ending::CouldNot, path_ + ": there is no ticket " + std::to_string(number));
    }
}

void OpenedBlock::RequireWhole() const {
    if (!IsImage(Block.TicketBuffer) || FindEndMarker(Block.TicketBuffer) == 0) {
        throw Refusal(Ending::FaultFound, path_ + ": this is no whole ticket block");
    }
}

void OpenedBlock::RequireSound() const {
    if (!FaultsInImage(Block.TicketBuffer).empty()) {
        throw Refusal(Ending::FaultFound,
                      path_ + ": the block is damaged (varno-tickets check tells how)");
    }
}

void OpenedBlock::Save() const {
    Deliver(IsStandardInput(path_) ? "-" : path_, BlockFileBytes(InCapitals(Block.TicketBuffer)));
    for (std::size_t key = 0; key < KeyCount; ++key) {
        if (keyTicketBefore_[key] != 0 && keyTicketBefore_[key] != Block.KeyTicket[key]) {
            std::cerr << path_ << ": " << KeyNames[key] << " no longer prints ticket "
                      << keyTicketBefore_[key] << '\n';
        }
    }
}

}  // namespace varno
