// A ticket block as UTF-8 text that can be kept under version control, compared, edited and made a
// block again. Tickets stand in the order of their numbers; one line says in which order the memory
// holds them and which keys print them, so putting a ticket again changes that line alone. The
// grammar is in docs/formats.md.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>

#include "block/block_content.h"
#include "codec/ticket_text.h"

namespace varno {

// One content has one text; lines end with LF.
std::string BlockText(const BlockContent& content, const CodeComment& comment = {});

// One ticket, as it stands in such a text.
std::string TicketText(const TicketRecord& ticket, const CodeComment& comment = {});

// Where a text says what it cannot mean, for "file:line:column: what".
struct BlockTextFault {
    std::size_t line;    // from 1
    std::size_t column;  // from 1, in characters
    std::string what;    // a sentence for the operator
};

// The content that a text says, if it fits into the memory. Lines may end with CR LF.
std::variant<BlockContent, BlockTextFault> ReadBlockText(std::string_view text);

// A text of one ticket.
std::variant<TicketRecord, BlockTextFault> ReadTicketText(std::string_view text);

}  // namespace varno
