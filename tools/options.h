// The options of the command line.
#pragma once

#include <span>
#include <string_view>
#include <variant>

#include "tools/commands.h"

namespace varno {

struct Option {
    std::string_view name;
    std::string_view argument;  // empty: it takes none
    std::string_view help;
    std::variant<std::string Request::*, bool Request::*> value;
};

std::span<const Option> Options();

inline constexpr std::string_view OptionsOfEveryCommand = "--help --version";
bool Takes(const Subcommand& command, std::string_view option);

// What the arguments ask for, or a refusal. Options may stand anywhere in front of "--".
Request RequestIn(std::span<char*> arguments);

}  // namespace varno
