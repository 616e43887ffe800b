// Where a path leads: a name in an open folder, whether there is such a file or not.
#pragma once

#include <string>

#include "platform/descriptor_posix.h"
#include "platform/error.h"

namespace varno {

struct FilePlace {
    Descriptor folder;
    std::string name;
    std::string path;  // of the folder and the name, as far as possible the one true path
};

// Links are followed, those that lead nowhere too.
[[nodiscard]] Error FindPlace(const std::string& path, FilePlace& place);

}  // namespace varno
