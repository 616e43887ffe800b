#include "platform/user_folder.h"

#include <cstdlib>

namespace varno {
namespace {

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

}  // namespace

std::string UserDataFolder() {
    std::string data = Environment("XDG_DATA_HOME");
    if (data.empty()) {
        data = Environment("HOME") + "/.local/share";
    }
    return data + "/VarnoTicketFormatter";
}

}  // namespace varno
