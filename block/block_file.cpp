#include "block/block_file.h"

#include <algorithm>
#include <map>
#include <utility>

#include "block/image.h"
#include "block/ticket_block.h"
#include "platform/files.h"

namespace varno {
namespace {

using Faults = std::vector<std::string>;

constexpr std::string_view LineEnd = "\r\n";

std::string Ticket(int number) {
    return "Ticket " + std::to_string(number);
}
std::string Column(std::size_t position) {
    return " (column " + std::to_string(position) + ")";
}

void CheckFrame(const std::string& image, Faults& faults) {
    if (image.size() != ImageLength) {
        faults.push_back("It has " + std::to_string(image.size()) +
                         (image.size() < MostBlockFileBytes ? "" : " or more") +
                         " characters; a block has " + std::to_string(ImageLength) + ".");
    }
    if (image.empty() || image.front() != ':') {
        faults.emplace_back("It does not begin with \":\".");
    }
}

// What else came over the line in their place may be no character to show.
std::string ShownDigits(std::string digits) {
    std::replace_if(
        digits.begin(), digits.end(), [](char c) { return HexDigit(c) < 0; }, '?');
    return digits;
}

void CheckDigits(const std::string& image, Faults& faults) {
    const auto isDigit = [](char c) { return HexDigit(c) >= 0; };
    const auto begin = image.begin() + std::min<std::ptrdiff_t>(1, std::ssize(image));
    const auto bad = std::find_if_not(begin, image.end(), isDigit);
    if (bad != image.end()) {
        faults.push_back("It holds a character that is no hexadecimal digit" +
                         Column(static_cast<std::size_t>(bad - image.begin()) + 1) + ".");
    }
    if (image.find_first_of("abcdef") != std::string::npos &&
        image.find_first_of("ABCDEF") != std::string::npos) {
        faults.emplace_back("It mixes capital and small hexadecimal digits.");
    }
    if (image.size() < ImageLength) {
        return;
    }
    if (image.compare(MemoryDigits + 1, 2, "00") != 0) {
        faults.emplace_back("\"00\" is missing between the memory and its checksum.");
    }
    const std::string crc = BufferCrc(std::string_view(image).substr(1, MemoryDigits));
    if (HexAt(image, MemoryDigits + 3, WordDigits) != HexAt(crc, 0, WordDigits)) {
        faults.push_back("The checksum is " +
                         ShownDigits(image.substr(MemoryDigits + 3, WordDigits)) +
                         ", but the memory gives " + crc + ".");
    }
}

// Tells whether the records follow each other without gaps, and each has its end.
void CheckRecords(const std::string& image, std::size_t endMarker, Faults& faults) {
    int open = 0;  // the ticket whose record has begun
    for (std::size_t p = FirstWord; p < endMarker; p += WordDigits) {
        const int wordClass = WordClassAt(image, p);
        const bool isHeader = wordClass == TicketHeaderClass;
        if (isHeader && open != 0) {
            faults.push_back(Ticket(open) + " has no end.");
        }
        if (isHeader && !IsTicketNumber(WordValueAt(image, p))) {
            faults.push_back(Ticket(WordValueAt(image, p)) + " has a number outside of " +
                             TicketNumbers(" to ") + Column(p) + ".");
        }
        if (!isHeader && open == 0) {
            faults.push_back("There is something between the tickets" + Column(p) + ".");
            return;
        }
        if (isHeader) {
            open = WordValueAt(image, p);
        } else if (wordClass == TicketEndClass) {
            open = 0;
        }
    }
    if (open != 0) {
        faults.push_back(Ticket(open) + " has no end.");
    }
}

void CheckTickets(const std::string& image, Faults& faults) {
    TicketBlock block;
    block.TicketBuffer = image;
    block.LoadKeys();
    std::map<int, int> count;
    for (const int number : block.Tickets()) {
        ++count[number];
    }
    for (const auto& [number, times] : count) {
        if (times > 1) {
            faults.push_back(Ticket(number) + " is there " + std::to_string(times) + " times.");
        }
    }
    for (std::size_t key = 0; key < KeyCount; ++key) {
        const int number = block.KeyTicket[key];
        if (number != 0 && count.count(number) == 0) {
            faults.push_back("The key " + std::string(KeyNames[key]) + " prints ticket " +
                             std::to_string(number) + ", which is not there.");
        }
    }
}

}  // namespace

std::string ImageIn(std::string_view fileBytes) {
    return std::string(fileBytes.substr(0, fileBytes.find_first_of(",\r\n")));
}

Error ReadBlockFile(const std::string& path, std::string& image) {
    std::string bytes;
    if (Error error = ReadFile(path, bytes, MostBlockFileBytes)) {
        return error;
    }
    std::string field = ImageIn(bytes);
    if (field.size() == MostBlockFileBytes) {
        return path + ": this is no ticket block; it goes on and on without a line end";
    }
    image = std::move(field);
    return std::nullopt;
}

std::string BlockFileBytes(const std::string& image) {
    return image + std::string(LineEnd);
}

Error WriteBlockFile(const std::string& path, const std::string& image) {
    return WriteFile(path, BlockFileBytes(image));
}

std::vector<std::string> FaultsInImage(const std::string& image) {
    Faults faults;
    CheckFrame(image, faults);
    CheckDigits(image, faults);
    const std::size_t endMarker = FindEndMarker(image);
    if (endMarker == 0) {
        faults.emplace_back("It has no end marker behind its tickets.");
        return faults;
    }
    CheckRecords(image, endMarker, faults);
    if (endMarker - FirstWord > static_cast<std::size_t>(RecordCapacity)) {
        faults.emplace_back("The tickets leave no room for the keys.");
    } else {
        CheckTickets(image, faults);
    }
    return faults;
}

std::vector<std::string> FaultsInBlockFile(std::string_view fileBytes) {
    const std::string image = ImageIn(fileBytes);
    Faults faults = FaultsInImage(image);
    if (fileBytes.substr(image.size()) != LineEnd) {
        faults.emplace_back("It must be one line ended by CR LF, with nothing behind it.");
    }
    return faults;
}

}  // namespace varno
