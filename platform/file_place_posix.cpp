#include "platform/file_place_posix.h"

#include <fcntl.h>

#include <cerrno>
#include <filesystem>
#include <system_error>

namespace varno {

namespace {

namespace fs = std::filesystem;

constexpr int MostLinks = 40;  // as the system has it

fs::path BehindLinks(fs::path path) {
    std::error_code error;
    for (int i = 0; i < MostLinks && fs::is_symlink(fs::symlink_status(path, error)); ++i) {
        path = path.parent_path() / fs::read_symlink(path, error);
    }
    return path;
}

// A folder that may be entered but not listed will do.
Descriptor OpenFolder(const fs::path& folder) {
    Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened && errno == EACCES) {
        opened = Descriptor(::open(folder.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    }
    return opened;
}

}  // namespace

Error FindPlace(const std::string& path, FilePlace& place) {
    const fs::path file = BehindLinks(path);
    const fs::path folder = file.has_parent_path() ? file.parent_path() : fs::path(".");
    place.name = file.filename();
    place.folder = OpenFolder(folder);
    if (!place.folder || place.name.empty()) {
        return path + ": " + std::system_category().message(place.folder ? ENOENT : errno);
    }
    std::error_code error;
    place.path = fs::weakly_canonical(folder, error) / place.name;
    return std::nullopt;
}

}  // namespace varno
