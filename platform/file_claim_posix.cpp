// A claim is a lock on the file, which the system takes back from a program that ends.
#include "platform/file_claim_posix.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <chrono>
#include <thread>
#include <utility>

#include "platform/temporary_file_posix.h"

namespace varno {
namespace {

// Who looks whether a file is claimed has a lock on it for a moment.
constexpr int MostAttempts = 20;
constexpr std::chrono::milliseconds Pause(5);

Descriptor OpenOrdinary(const std::string& path, int flags) {
    Descriptor file(::open(path.c_str(), flags | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat status {};
    return file && ::fstat(*file, &status) == 0 && S_ISREG(status.st_mode) ? std::move(file)
                                                                           : Descriptor();
}

bool TakeLockSoon(int file) {
    for (int attempt = 1; !TakeLock(file); ++attempt) {
        if (attempt == MostAttempts) {
            return false;
        }
        std::this_thread::sleep_for(Pause);
    }
    return true;
}

}  // namespace

FileClaim ClaimBy(Descriptor locked) {
    return std::make_shared<Descriptor>(std::move(locked));
}

FileClaim ClaimFile(const std::string& path) {
    Descriptor file = OpenOrdinary(path, O_RDWR);  // over a network what is only read has no lock
    // Whoever had the lock before may have removed the file.
    return file && TakeLockSoon(*file) && HasName(*file) ? ClaimBy(std::move(file)) : nullptr;
}

std::optional<bool> IsFileClaimed(const std::string& path) {
    const Descriptor file = OpenOrdinary(path, O_RDONLY);
    if (!file) {
        return std::nullopt;
    }
    const bool isFree = ::flock(*file, LOCK_SH | LOCK_NB) == 0;
    return isFree || errno == EWOULDBLOCK ? std::optional(!isFree) : std::nullopt;
}

}  // namespace varno
