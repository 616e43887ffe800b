// A ticket as lines of UTF-8 text that can be read, compared, edited and read back. One printed
// line is one line of text; codes stand in braces. The grammar is in docs/formats.md.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "codec/catalogue.h"
#include "codec/word.h"

namespace varno {

// What a control or print code does, for a reader; empty if nobody knows.
using CodeComment = std::function<std::string(Word)>;

// As the catalogues say. Each code is looked up once.
CodeComment CommentsOf(const Catalogues& catalogues);

// The lines of a ticket's body, without line ends of their own. One body has one text. With
// `comment`, codes carry their comments.
std::vector<std::string> TicketLines(std::span<const Word> body, const CodeComment& comment = {});

struct TextFault {
    std::size_t column;  // of the line, from 1, in characters
    std::string what;    // a sentence for the operator
};

// Adds what a line says to the body. What it added before a fault stays.
std::optional<TextFault> ReadTicketLine(std::string_view line, std::vector<Word>& body);

// Whether the body ends with a printed line end; only its last line may be without.
bool EndsPrintedLine(std::span<const Word> body);

}  // namespace varno
