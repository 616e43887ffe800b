// The commands of varno-tickets.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace varno {

struct Subcommand;

struct Request {
    const Subcommand* command = nullptr;
    std::vector<std::string> operands;  // as many as the command takes
    std::vector<std::string> blocks;    // of a command on each of several, and no operands of it
    std::vector<std::string> options;   // the names of those that were given

    std::string catalogueFolder;
    std::string svgFile;     // empty: text
    std::string valuesFile;  // empty: the samples
    std::string width;       // of the paper; empty: as the effects say
    std::string number;      // of a ticket in several blocks
    std::string port;        // "COM3" or a device; empty, and `settings` too: as the window has it
    std::string settings;    // of the line
    std::string wait;        // seconds; empty: as long as it takes
    std::string backupFolder;  // of copies; empty: the history
    std::string link;          // a port to be linked
    std::string unlink;        // or no longer
    bool force = false;        // replace what is there, change a damaged block
    bool keepKey = false;      // of a ticket that is replaced
    bool strict = false;       // tell what is suspect
    bool comments = false;     // of codes, in texts
    bool json = false;
    bool help = false;
    bool version = false;
};

// What a command does to a block. Returns what is to be said of the block, or nothing; or refuses.
using BlockTask = std::function<std::string(const std::string& path)>;

struct Subcommand {
    std::string_view name;  // one word or two
    // Separated by blanks; in brackets, those that may be missing; with "...", one or more.
    std::string_view operands;
    std::string_view options;  // separated by blanks
    std::string_view help;
    // Of a command on each of several blocks, what it is to do once its request is understood.
    std::variant<void (*)(const Request&), BlockTask (*)(const Request&)> run;
    std::string_view operandsOfMany = "";  // with --number in front; empty: it takes none
};

std::span<const Subcommand> Commands();

// The row of the command that the operands begin with, or a refusal; its name is taken off them. A
// first word alone means its list.
const Subcommand& TakeCommand(std::vector<std::string>& operands);

// The number that an operand is, whether a ticket can have it or not.
int TicketNumber(const std::string& text);

// Refuses a file that is there already, unless it may be replaced.
void RequireNew(const Request& request, const std::string& path);
// Writes such a file.
void DeliverNew(const Request& request, const std::string& path, std::string_view bytes);

}  // namespace varno
