#include "practice/desk_folder.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>
#include <utility>

namespace varno {
namespace {

namespace fs = std::filesystem;

constexpr const char* Name = "varno-practice-";

fs::path PlaceOfDesks() {
    const char* const runtime = std::getenv("XDG_RUNTIME_DIR");
    const bool isOurs = runtime != nullptr && *runtime == '/' && ::access(runtime, W_OK) == 0;
    return isOurs ? fs::path(runtime) : fs::temp_directory_path();
}

Descriptor OpenFolder(const fs::path& path) {
    return Descriptor(::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

bool IsOurs(const Descriptor& folder) {
    struct stat status = {};
    return ::fstat(*folder, &status) == 0 && status.st_uid == ::geteuid();
}

void Sweep(const fs::path& place) {
    std::error_code ignored;
    for (const fs::directory_entry& entry : fs::directory_iterator(place, ignored)) {
        if (!entry.path().filename().string().starts_with(Name)) {
            continue;
        }
        const Descriptor folder = OpenFolder(entry.path());
        if (folder && IsOurs(folder) && ::flock(*folder, LOCK_EX | LOCK_NB) == 0) {
            fs::remove_all(entry.path(), ignored);
        }
    }
}

}  // namespace

DeskFolder MakeDeskFolder() {
    const fs::path place = PlaceOfDesks();
    Sweep(place);
    for (;;) {
        std::string path = place / (std::string(Name) + "XXXXXX");
        if (::mkdtemp(path.data()) == nullptr) {
            throw std::system_error(errno, std::generic_category(), place.string());
        }
        Descriptor lock = OpenFolder(path);
        if (lock && ::flock(*lock, LOCK_EX) != 0) {
            throw std::system_error(errno, std::generic_category(), path);
        }
        if (fs::exists(path)) {  // no sweeper has come in between
            return {std::move(path), std::move(lock)};
        }
    }
}

}  // namespace varno
