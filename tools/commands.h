// The commands of varno-tickets.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace varno {

struct Request {
    std::vector<std::string> operands;  // as many as the command takes
    std::string catalogueFolder;
    std::string svgFile;     // empty: text
    std::string valuesFile;  // empty: the samples
    std::string width;       // of the paper; empty: as the effects say
    bool force = false;      // replace what is there, change a damaged block
    bool comments = false;   // of codes, in texts
};

struct Subcommand {
    std::string_view name;
    std::string_view operands;  // separated by blanks; in brackets, those that may be missing
    std::string_view help;
    void (*run)(const Request&);
};

std::span<const Subcommand> Commands();

// The number that an operand is, whether a ticket can have it or not.
int TicketNumber(const std::string& text);

// Writes a file that is no part of the block. One that is there stays, unless it may be replaced.
void DeliverNew(const Request& request, const std::string& path, std::string_view bytes);

}  // namespace varno
