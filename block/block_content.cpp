#include "block/block_content.h"

#include <algorithm>
#include <cctype>
#include <span>
#include <utility>

#include "block/image.h"
#include "codec/encoder.h"

namespace varno {
namespace {

std::string WithSmallDigits(std::string image) {
    std::transform(image.begin(), image.end(), image.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return image;
}

bool HasSmallDigits(std::string_view image) {
    return std::any_of(image.begin(), image.end(), [](char c) { return c >= 'a' && c <= 'f'; });
}

void Append(std::string& memory, std::span<const Word> words) {
    for (const Word word : words) {
        memory += WordHex(word);
    }
}

}  // namespace

const TicketRecord* BlockContent::Find(int number) const {
    const auto found =
        std::find_if(tickets.begin(), tickets.end(),
                     [&](const TicketRecord& ticket) { return ticket.number == number; });
    return found == tickets.end() ? nullptr : &*found;
}

std::size_t BlockContent::Words() const {
    std::size_t words = EndMarkerDigits / WordDigits + fill.size();
    for (const TicketRecord& ticket : tickets) {
        words += ticket.body.size() + 2;
    }
    return words;
}

BlockContent ContentOf(std::string_view image) {
    BlockContent content;
    content.smallDigits = HasSmallDigits(image);
    std::vector<Word> words = WordsOf(image.substr(0, MemoryDigits + 1));
    auto word = words.begin();
    bool open = false;  // a ticket has begun and not ended
    for (; word != words.end() && ClassOf(*word) != EndMarkerClass; ++word) {
        if (ClassOf(*word) == TicketHeaderClass) {
            content.tickets.push_back({.number = ValueOf(*word)});
            open = true;
        } else if (open && ClassOf(*word) == TicketEndClass) {
            content.tickets.back().end = *word;
            open = false;
        } else if (open) {
            content.tickets.back().body.push_back(*word);
        }
    }
    if (word == words.end()) {
        return content;
    }
    content.endMarker = *word++;
    for (Word& key : content.keys) {
        if (word != words.end()) {
            key = *word++;
        }
    }
    while (!words.empty() && words.back() == 0 && words.end() > word) {
        words.pop_back();
    }
    content.fill.assign(word, words.end());
    return content;
}

TicketRecord RecordOf(const MarkedText& ticket) {
    TicketRecord record;
    for (const PlacedWord& placed : EncodeBody(ticket)) {
        record.body.push_back(placed.word);
    }
    return record;
}

std::string RecordHex(const TicketRecord& ticket) {
    std::string record = WordHex(static_cast<Word>(TicketHeader + ticket.number));
    Append(record, ticket.body);
    return record + WordHex(ticket.end);
}

std::string ImageOf(const BlockContent& content) {
    std::string memory;
    for (const TicketRecord& ticket : content.tickets) {
        memory += RecordHex(ticket);
    }
    memory += WordHex(content.endMarker);
    Append(memory, content.keys);
    Append(memory, content.fill);
    const std::string image = SealTicketBuffer(std::move(memory));
    return content.smallDigits ? WithSmallDigits(image) : image;
}

}  // namespace varno
