// What an operator reads of a copy, in the window and on the command line.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "history/history.h"

namespace varno {

// What the name of its file tells: cheap, for thousands of copies.
struct CopyHeading {
    std::string when;  // "2026-11-23 08:38:49", as clocks show it here
    std::string what;  // "After an upload from COM3"; of unsaved work also what became of it
    std::string kind;  // "block" or "ticket"
    std::string name;  // may be empty
};

// Not for several threads at once.
CopyHeading HeadingOf(const Copy& copy, std::optional<bool> isInWork = {});

// What takes its content: for copies that are looked at.
struct CopyFindings {
    std::vector<int> tickets{};         // of a block: the numbers, ascending, each once
    std::vector<std::string> faults{};  // a sentence each; empty for a sound block, and for a
                                        // ticket that can be read

    bool operator==(const CopyFindings&) const = default;
};

CopyFindings FindingsIn(CopyKind kind, std::string_view content);

// The same of a copy on the disk; a copy that cannot be read has this for its fault.
CopyFindings FindingsOf(const History& history, const Copy& copy);

// "200, 201, 205", or "none"; empty for a ticket.
std::string TicketsText(CopyKind kind, const CopyFindings& findings);

// "sound", or the first fault.
std::string SoundnessText(const CopyFindings& findings);

// Whether every word of the filter, words being separated by blanks, stands somewhere in the text;
// "A" to "Z" count as "a" to "z".
bool Matches(std::string_view text, std::string_view filter);

}  // namespace varno
