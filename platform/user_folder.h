#pragma once

#include <string>

namespace varno {

// The window program, whose settings and data folder others use too.
inline constexpr const char* ProgramName = "VarnoTicketFormatter";

// The environment that a program was started with may give it folders that are not its user's own,
// to practise in. The user's own value of a variable is in one with this in front, or empty.
inline constexpr const char* UsersOwn = "VARNO_USERS_";

// Where the programs look for what a user has set up beside the settings: XDG_DATA_HOME or what
// stands for it.
std::string UserDataFolder();

// Where they keep what is the user's but no document of his: XDG_STATE_HOME or what stands for it.
// Empty for a user without a home.
std::string UserStateFolder();

// Where they look for links named COM<n>: the user's own numbering of serial ports.
std::string PortsFolder();

}  // namespace varno
