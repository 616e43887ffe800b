// What differs between a copy and what is open now, in sentences.
#pragma once

#include <string>
#include <vector>

#include "codec/marked_text.h"
#include "codec/ticket_text.h"

namespace varno {

// The lines that only one of them prints begin with these.
inline constexpr const char* ComparisonLegend =
    "What differs: lines with - are in the window, with + in the copy";

// What is longer, as no ticket of a block makes it, is cut and says so.
inline constexpr std::size_t MostSentences = 5'000;
inline constexpr std::size_t MostSentenceBytes = 2'000;

// Never empty. A copy that is damaged is compared as far as it can be read.
std::vector<std::string> CompareBlocks(const std::string& openImage, const std::string& copyImage,
                                       const CodeComment& comment);
std::vector<std::string> CompareTickets(const MarkedText& openTicket, const MarkedText& copyTicket,
                                        const CodeComment& comment);

}  // namespace varno
