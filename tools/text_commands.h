// Blocks as text: the commands for version control.
#pragma once

#include <string>
#include <string_view>

#include "block/block_compare.h"
#include "block/block_content.h"
#include "tools/commands.h"

namespace varno {

void Text(const Request& request);
void Build(const Request& request);
void Textconv(const Request& request);
void Diff(const Request& request);
void MergeBlocks(const Request& request);
void New(const Request& request);

// Tells what differs, and refuses if anything does.
void TellDifferences(const Request& request, const BlockContent& first, const BlockContent& second,
                     const BlockNames& names);

// Whether a file of these bytes is a text of a ticket.
bool IsTicketText(std::string_view bytes);
// Its ticket, or a refusal that says where the text is wrong.
TicketRecord TicketInText(const std::string& path, std::string_view bytes);

}  // namespace varno
