// Blocks as text: the commands for version control.
#pragma once

#include <string>

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

// The same of two tickets.
void TellDifferences(const Request& request, const TicketRecord& first, const TicketRecord& second,
                     const BlockNames& names);

// The sound block that a block file or a text holds, or a refusal that says what is wrong with it.
BlockContent BlockIn(const std::string& path);

// The ticket that a ticket file or a text holds, or such a refusal; of a ticket file without
// number.
TicketRecord TicketIn(const std::string& path);
TicketRecord TicketIn(const std::string& path, const std::string& bytes);

}  // namespace varno
