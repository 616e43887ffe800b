#include "platform/temporary_file_posix.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <iomanip>
#include <random>
#include <sstream>

#include "platform/folder_posix.h"

namespace varno {

namespace {

constexpr int MostAttempts = 100;

// 16 hexadecimal digits that cannot be guessed.
std::string RandomDigits() {
    std::random_device source;
    std::ostringstream digits;
    digits << std::hex << std::setfill('0') << std::setw(8) << source() << std::setw(8) << source();
    return digits.str();
}

}  // namespace

bool TakeLock(int file) {
    return ::flock(file, LOCK_EX | LOCK_NB) == 0 || errno != EWOULDBLOCK;
}

bool HasName(int file) {
    struct stat status {};
    return ::fstat(file, &status) == 0 && status.st_nlink > 0;
}

TemporaryFile::TemporaryFile(int folder, const std::string& prefix, mode_t rights)
    : folder_(folder) {
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        name_ = prefix + RandomDigits();
        file_ = Descriptor(::openat(folder, name_.c_str(),
                                    O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, rights));
        // Another save may find the file before it is locked, and remove it as left behind.
        if (file_ ? TakeLock(*file_) && HasName(*file_) : errno != EEXIST) {
            return;
        }
    }
}

TemporaryFile::~TemporaryFile() {
    if (file_ && !name_.empty()) {
        ::unlinkat(folder_, name_.c_str(), 0);
    }
}

Descriptor TemporaryFile::LockedHandle() const {
    return Descriptor(::fcntl(*file_, F_DUPFD_CLOEXEC, 0));
}

bool TemporaryFile::MoveTo(const std::string& name) {
    if (::renameat(folder_, name_.c_str(), folder_, name.c_str()) != 0) {
        return false;
    }
    Keep();
    return true;
}

bool TemporaryFile::MoveToNew(const std::string& name) {
    // Not every file system renames in this way; those that do not have links.
    if (::renameat2(folder_, name_.c_str(), folder_, name.c_str(), RENAME_NOREPLACE) == 0) {
        Keep();
        return true;
    }
    return errno == EINVAL && ::linkat(folder_, name_.c_str(), folder_, name.c_str(), 0) == 0;
}

void RemoveLeftovers(int folder, const std::string& prefix) {
    for (const std::string& name : FilesIn(folder)) {
        if (!name.starts_with(prefix)) {
            continue;
        }
        const Descriptor file(
            ::openat(folder, name.c_str(), O_RDWR | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
        if (file && ::flock(*file, LOCK_EX | LOCK_NB) == 0) {
            ::unlinkat(folder, name.c_str(), 0);
        }
    }
}

}  // namespace varno
