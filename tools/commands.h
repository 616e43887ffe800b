// The commands of varno-tickets.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace varno {

struct Request {
    std::vector<std::string> operands;  // as many as the command has
    std::string catalogueFolder;        // ends with the separator
    bool force = false;                 // replace what is there, change a damaged block
};

struct Command {
    std::string_view name;
    std::string_view operands;  // separated by blanks
    std::string_view help;
    void (*run)(const Request&);
};

std::span<const Command> Commands();

}  // namespace varno
