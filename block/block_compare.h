// What two blocks have in common and what not, in words; and two changed blocks made one.
#pragma once

#include <string>
#include <vector>

#include "block/block_content.h"
#include "codec/ticket_text.h"

namespace varno {

struct BlockNames {
    std::string first;
    std::string second;
};

// The printed lines of a ticket that differ: "-" as the first has them, "+" as the second. The
// number does not matter.
std::vector<std::string> LineDifferences(const TicketRecord& first, const TicketRecord& second,
                                         const CodeComment& comment = {});

// A sentence for each ticket that only one block holds, for each key and for what follows the
// tickets; of a ticket that both hold, its lines that differ. Empty if nothing differs; the order
// of the tickets is no difference.
std::vector<std::string> Differences(const BlockContent& first, const BlockContent& second,
                                     const BlockNames& names, const CodeComment& comment = {});

struct MergedBlock {
    BlockContent content;
    std::vector<std::string> conflicts;  // a sentence each; with any, `content` is not to be used
};

// What both sides made of `base`, ticket by ticket and key by key. Tickets that only `theirs` added
// come first in the memory, as if they were put last.
MergedBlock Merge(const BlockContent& base, const BlockContent& ours, const BlockContent& theirs);

}  // namespace varno
