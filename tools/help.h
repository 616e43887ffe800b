// What the tables of commands and options say, for people and for the shell.
#pragma once

#include <string>

#include "tools/commands.h"

namespace varno {

std::string HelpText();
std::string HelpText(const Subcommand& command);

// The command "completion": what bash needs to complete commands and options.
void Completion(const Request& request);

}  // namespace varno
