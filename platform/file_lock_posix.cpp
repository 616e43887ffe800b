#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <thread>

#include "platform/file_place_posix.h"
#include "platform/files.h"

namespace varno {

namespace {

using Clock = std::chrono::steady_clock;

constexpr std::chrono::seconds LongestWait(10);
constexpr std::chrono::milliseconds Pause(5);

// The file, or while there is none, its folder. Not open if it is neither, or closed to us.
Descriptor OpenToLock(const std::string& path) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        FilePlace place;
        const Error error = FindPlace(path, place);
        return error ? Descriptor() : std::move(place.folder);
    }
    if (!S_ISREG(status.st_mode)) {
        return {};
    }
    // Over a network only what may be written can be locked.
    Descriptor file(::open(path.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
    return file ? std::move(file)
                : Descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
}

// False if the time is over. A system without locks is taken for having given it.
bool WaitForLock(int file, Clock::time_point deadline) {
    while (::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
        if (Clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(Pause);
    }
    return true;
}

// Whoever had the lock before may have exchanged the file for a new one, or made the first.
bool IsStillMeant(int file, const std::string& path) {
    struct stat locked {};
    struct stat named {};
    ::fstat(file, &locked);
    if (::stat(path.c_str(), &named) != 0) {
        return S_ISDIR(locked.st_mode);
    }
    return locked.st_dev == named.st_dev && locked.st_ino == named.st_ino;
}

}  // namespace

struct FileLock::Held {
    Descriptor file;
};

FileLock::FileLock() = default;
FileLock::~FileLock() = default;

Error FileLock::Take(const std::string& path) {
    const Clock::time_point deadline = Clock::now() + LongestWait;
    for (;;) {
        Descriptor file = OpenToLock(path);
        if (file && !WaitForLock(*file, deadline)) {
            return path + ": another program has been changing this file for " +
                   std::to_string(LongestWait.count()) + " seconds";
        }
        if (!file || IsStillMeant(*file, path)) {
            held_ = std::make_unique<Held>(Held{std::move(file)});
            return std::nullopt;
        }
    }
}

}  // namespace varno
