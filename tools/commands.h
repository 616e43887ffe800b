// The commands of varno-tickets.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace varno {

struct Subcommand;

struct Request {
    const Subcommand* command = nullptr;
    std::vector<std::string> operands;  // as many as the command takes
    std::vector<std::string> options;   // the names of those that were given

    std::string catalogueFolder;
    std::string svgFile;     // empty: text
    std::string valuesFile;  // empty: the samples
    std::string width;       // of the paper; empty: as the effects say
    std::string port;        // "COM3" or a device; empty, and `settings` too: as the window has it
    std::string settings;    // of the line
    std::string wait;        // seconds; empty: as long as it takes
    std::string backupFolder;  // for copies; empty: the history
    std::string link;          // a port to be linked
    std::string unlink;        // or no longer
    bool force = false;        // replace what is there, change a damaged block
    bool comments = false;     // of codes, in texts
    bool json = false;
    bool help = false;
    bool version = false;
};

struct Subcommand {
    std::string_view name;
    std::string_view operands;  // separated by blanks; in brackets, those that may be missing
    std::string_view options;   // likewise
    std::string_view help;
    void (*run)(const Request&);
};

std::span<const Subcommand> Commands();

// The row of the command, or a refusal.
const Subcommand& CommandNamed(const std::string& name);

// The number that an operand is, whether a ticket can have it or not.
int TicketNumber(const std::string& text);

// Refuses a file that is there already, unless it may be replaced.
void RequireNew(const Request& request, const std::string& path);
// Writes such a file.
void DeliverNew(const Request& request, const std::string& path, std::string_view bytes);

}  // namespace varno
