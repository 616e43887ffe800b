#include "platform/user_folder.h"

#include <cstdlib>

namespace varno {
namespace {

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

// Empty where neither the variable nor the home is set.
std::string Folder(const char* variable, const char* inHome) {
    const std::string set = Environment(variable);  // counts if it is absolute
    const std::string home = Environment("HOME");
    if (set.empty() && home.empty()) {
        return "";
    }
    return (set.starts_with('/') ? set : home + inHome) + "/" + ProgramName;
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
