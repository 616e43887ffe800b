#include "platform/folder_posix.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <memory>

#include "platform/descriptor_posix.h"

namespace varno {
namespace {

// Not every folder tells it by itself.
bool IsOrdinary(int folder, const dirent& entry) {
    struct stat status {};
    return entry.d_type == DT_REG ||
           (entry.d_type == DT_UNKNOWN &&
            ::fstatat(folder, entry.d_name, &status, AT_SYMLINK_NOFOLLOW) == 0 &&
            S_ISREG(status.st_mode));
}

}  // namespace

std::vector<std::string> FilesIn(int folder) {
    Descriptor list(::openat(folder, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(list ? ::fdopendir(*list) : nullptr,
                                                      &::closedir);
    if (!entries) {
        return {};
    }
    list.Release();
    std::vector<std::string> names;
    while (const dirent* entry = ::readdir(entries.get())) {
        if (IsOrdinary(folder, *entry)) {
            names.emplace_back(entry->d_name);
        }
    }
    return names;
}

}  // namespace varno
