#include "platform/user_folder.h"

#include <cstdlib>

namespace varno {
namespace {

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

// A variable counts if it is absolute; empty where none does and there is no home.
std::string Folder(const char* variable, const char* inHome) {
    const std::string set = Environment(variable);
    const std::string home = Environment("HOME");
    const std::string folder = set.starts_with('/') ? set : home.empty() ? "" : home + inHome;
    return folder.empty() ? "" : folder + "/" + ProgramName;
}

}  // namespace

std::string UserDataFolder() {
    return Folder("XDG_DATA_HOME", "/.local/share");
}

std::string UserStateFolder() {
    return Folder("XDG_STATE_HOME", "/.local/state");
}

std::string PortsFolder() {
    return UserDataFolder() + "/ports";
}

}  // namespace varno
