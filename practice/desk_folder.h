// The folder of a practice desk.
#pragma once

#include <string>

#include "platform/descriptor_posix.h"

namespace varno {

// Exists and is locked. Nothing but its user's runtime folder, or else the temporary one, is there
// after a restart of the system either.
struct DeskFolder {
    std::string path;
    Descriptor lock;  // held as long as somebody is at the desk
};

// Makes one and removes those that nobody is at any more, because all at once were killed. Throws
// std::system_error.
DeskFolder MakeDeskFolder();

}  // namespace varno
