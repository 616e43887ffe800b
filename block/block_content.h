// What a sound block holds, as a value: every word of its memory has a place here, so that the same
// image can be made of it again.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "block/rows.h"
#include "codec/marked_text.h"
#include "codec/word.h"

namespace varno {

struct TicketRecord {
    int number = 0;
    std::vector<Word> body{};
    Word end = TicketEnd;

    bool operator==(const TicketRecord&) const = default;
};

struct BlockContent {
    std::vector<TicketRecord> tickets{};  // in the order of the memory, the one put last first
    std::array<Word, KeyCount> keys{};    // the key words; their value is the ticket, 0 for none
    Word endMarker = EndMarker;
    std::vector<Word> fill{};  // behind the key words, without the zeros at its end
    bool smallDigits = false;  // the image writes its hexadecimal digits as a to f

    const TicketRecord* Find(int number) const;  // null if it is not there
    std::size_t Words() const;                   // of the memory, without the zeros at its end

    bool operator==(const BlockContent&) const = default;
};

// The content of an image that has no fault. Of another one it is what can be read of it.
BlockContent ContentOf(std::string_view image);

// The record of a ticket as the editor holds it, without a number.
TicketRecord RecordOf(const MarkedText& ticket);

// The hexadecimal text of a record, header and ticket end included.
std::string RecordHex(const TicketRecord& ticket);

// The image of a content that fits into the memory.
std::string ImageOf(const BlockContent& content);

}  // namespace varno
