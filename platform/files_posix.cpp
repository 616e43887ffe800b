#include "platform/files.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <optional>
#include <system_error>

#include "platform/file_claim_posix.h"
#include "platform/file_identity_posix.h"
#include "platform/file_place_posix.h"
#include "platform/folder_posix.h"
#include "platform/temporary_file_posix.h"

namespace varno {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t ChunkBytes = 1 << 16;
constexpr int LongestSilence = 10'000;  // milliseconds that a pipe may take nothing
constexpr mode_t WriteRights = S_IWUSR | S_IWGRP | S_IWOTH;
constexpr mode_t NewFileRights = 0666;  // less the user's mask
constexpr mode_t OwnerOnly = 0600;
constexpr const char* NewFilePrefix = ".varno-new-";

Error Failure(const std::string& path, const std::string& reason) {
    return path + ": " + reason;
}

std::string Reason(int error) {
    return std::system_category().message(error);
}

Descriptor Open(const std::string& path, int flags) {
    return Descriptor(::open(path.c_str(), flags | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

struct stat StatusOf(int file) {
    struct stat status {};
    ::fstat(file, &status);
    return status;
}

bool WriteAt(int file, std::string_view bytes, off_t offset) {
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(file, bytes.data(), bytes.size(), offset);
        if (written < 0 && errno != EINTR) {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(written, 0)));
        offset += std::max<ssize_t>(written, 0);
    }
    return true;
}

// Up to a chunk, fewer only at the end of the file; nothing on failure.
std::optional<std::string> ReadAt(int file, std::size_t most, off_t offset) {
    std::string chunk(std::min(most, ChunkBytes), '\0');
    std::size_t length = 0;
    while (length < chunk.size()) {
        const ssize_t got = ::pread(file, chunk.data() + length, chunk.size() - length,
                                    offset + static_cast<off_t>(length));
        if (got == 0) {
            break;
        }
        if (got < 0 && errno != EINTR) {
            return std::nullopt;
        }
        length += static_cast<std::size_t>(std::max<ssize_t>(got, 0));
    }
    chunk.resize(length);
    return chunk;
}

// The whole content, flushed to disk.
bool CopyContent(int from, int to) {
    for (off_t offset = 0;;) {
        const std::optional<std::string> chunk = ReadAt(from, ChunkBytes, offset);
        if (!chunk || !WriteAt(to, *chunk, offset)) {
            return false;
        }
        offset += static_cast<off_t>(chunk->size());
        if (chunk->empty()) {
            return ::ftruncate(to, offset) == 0 && ::fsync(to) == 0;
        }
    }
}

// By their names the files beside a file are known as its own, wherever it was reached from.
std::string TemporaryPrefix(const FilePlace& place) {
    char digits[17];
    std::snprintf(digits, sizeof digits, "%016zx", std::hash<std::string>()(place.path));
    return ".varno-" + std::string(digits) + "-";
}

// The error, or 0 when the file holds the bytes. `prepare` gives the new file what the old one has;
// where it cannot, that is EPERM.
int WriteAndRename(const FilePlace& place, std::string_view bytes, mode_t rights,
                   const std::function<bool(int)>& prepare) {
    TemporaryFile file(*place.folder, TemporaryPrefix(place), rights);
    if (!file.IsOpen() || !WriteAt(file.Handle(), bytes, 0)) {
        return errno;
    }
    if (!prepare(file.Handle())) {
        return EPERM;
    }
    return ::fsync(file.Handle()) == 0 && file.MoveTo(place.name) ? 0 : errno;
}

// The new file is in its place: nothing is left to do but to make that last.
Error Finish(const FilePlace& place, const std::string& prefix) {
    RemoveLeftovers(*place.folder, prefix);
    // Not every folder can be flushed: one that may not be listed, one on some kinds of network.
    if (::fsync(*place.folder) == 0 || errno == EINVAL || errno == EBADF) {
        return std::nullopt;
    }
    return Failure(place.path, "written, but the disk does not confirm it: " + Reason(errno));
}

// What needs new room is written first: if there is none, the old content is still there.
bool Overwrite(int file, std::string_view bytes) {
    const off_t size = StatusOf(file).st_size;
    const std::size_t within = std::min(bytes.size(), static_cast<std::size_t>(size));
    const bool grown = WriteAt(file, bytes.substr(within), static_cast<off_t>(within));
    return grown && WriteAt(file, bytes.substr(0, within), 0) &&
           ::ftruncate(file, static_cast<off_t>(bytes.size())) == 0 && ::fsync(file) == 0;
}

// A copy of the file that goes with the object; nothing, and errno, if there can be none.
std::unique_ptr<TemporaryFile> CopyOf(int file, const FilePlace& place, const std::string& prefix) {
    auto copy = std::make_unique<TemporaryFile>(*place.folder, prefix, OwnerOnly);
    if (!copy->IsOpen() || !CopyContent(file, copy->Handle())) {
        return nullptr;
    }
    ::fsync(*place.folder);  // so that it is found after a power cut, where a folder can be flushed
    return copy;
}

// The copy is kept beside the file or, where that cannot be, among the temporary files.
Error OverwriteInPlace(const std::string& path, const FilePlace& place, std::string_view bytes) {
    const Descriptor file = Open(path, O_RDWR);
    if (!file) {
        return Failure(path, Reason(errno));
    }
    const std::string prefix = TemporaryPrefix(place);
    std::error_code noFolder;
    FilePlace spare;
    std::unique_ptr<TemporaryFile> copy = CopyOf(*file, place, prefix);
    const bool isBeside = copy != nullptr;
    if (!isBeside && !FindPlace(fs::temp_directory_path(noFolder) / place.name, spare)) {
        copy = CopyOf(*file, spare, prefix);
    }
    if (!copy) {
        return Failure(path, "no copy of it can be kept meanwhile: " + Reason(errno));
    }
    if (Overwrite(*file, bytes)) {
        RemoveLeftovers(*(isBeside ? place : spare).folder, prefix);
        return std::nullopt;
    }
    const int error = errno;
    if (CopyContent(copy->Handle(), *file)) {
        return Failure(path, Reason(error));
    }
    copy->Keep();
    const fs::path folder = fs::path((isBeside ? place : spare).path).parent_path();
    return Failure(path,
                   Reason(error) + "; its old content is in " + (folder / copy->Name()).string());
}

// A rename would give a file with several names, or one that is open by number, another file.
bool HasThisNameOnly(int file, const FilePlace& place) {
    const struct stat status = StatusOf(file);
    struct stat named {};
    return status.st_nlink == 1 &&
           ::fstatat(*place.folder, place.name.c_str(), &named, AT_SYMLINK_NOFOLLOW) == 0 &&
           named.st_dev == status.st_dev && named.st_ino == status.st_ino;
}

// What tells that the folder is closed to us, or that the file can not be exchanged for another.
bool ForbidsRename(int error) {
    return error == EPERM || error == EACCES || error == EROFS || error == EBUSY;
}

Error Replace(const std::string& path, int old, std::string_view bytes) {
    FilePlace place;
    if (Error error = FindPlace(path, place)) {
        return error;
    }
    const int error = HasThisNameOnly(old, place)
                          ? WriteAndRename(place, bytes, StatusOf(old).st_mode & OwnerOnly,
                                           [old](int file) { return CopyIdentity(old, file); })
                          : EPERM;
    if (ForbidsRename(error)) {
        return OverwriteInPlace(path, place, bytes);
    }
    return error == 0 ? Finish(place, TemporaryPrefix(place)) : Failure(path, Reason(error));
}

Error Create(const std::string& path, std::string_view bytes) {
    FilePlace place;
    if (Error error = FindPlace(path, place)) {
        return error;
    }
    const int error = WriteAndRename(place, bytes, NewFileRights, [](int) { return true; });
    return error == 0 ? Finish(place, TemporaryPrefix(place)) : Failure(path, Reason(error));
}

Error WriteStraight(const std::string& path, int file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written > 0) {
            bytes.remove_prefix(static_cast<std::size_t>(written));
            continue;
        }
        pollfd ready = {file, POLLOUT, 0};
        if (written < 0 && errno != EINTR && errno != EAGAIN) {
            return Failure(path, Reason(errno));
        }
        if (::poll(&ready, 1, LongestSilence) == 0) {
            return Failure(path, "nobody takes what is written");
        }
    }
    const bool flushed = ::fsync(file) == 0 || errno == EINVAL;  // most devices cannot be flushed
    return flushed ? std::nullopt : Failure(path, Reason(errno));
}

std::string WhyNotOpened(mode_t mode, int error) {
    if (error == ENXIO && S_ISFIFO(mode)) {
        return "nobody reads from this pipe";
    }
    return error == EACCES || error == EPERM ? "this file is write-protected" : Reason(error);
}

}  // namespace

Error ReadFile(const std::string& path, std::string& bytes, std::size_t most) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return Failure(path, Reason(errno));
    }
    if (!S_ISREG(status.st_mode)) {
        return Failure(path,
                       S_ISDIR(status.st_mode) ? "this is a folder" : "this is no ordinary file");
    }
    const Descriptor file = Open(path, O_RDONLY);
    if (!file) {
        return Failure(path, Reason(errno));
    }
    std::string read;
    while (read.size() < most) {
        const auto chunk = ReadAt(*file, most - read.size(), static_cast<off_t>(read.size()));
        if (!chunk) {
            return Failure(path, Reason(errno));
        }
        if (chunk->empty()) {
            break;
        }
        read += *chunk;
    }
    bytes = std::move(read);
    return std::nullopt;
}

Error WriteFile(const std::string& path, std::string_view bytes) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        return errno == ENOENT ? Create(path, bytes) : Failure(path, Reason(errno));
    }
    if (S_ISDIR(status.st_mode)) {
        return Failure(path, "this is a folder");
    }
    if (S_ISREG(status.st_mode) && (status.st_mode & WriteRights) == 0) {
        return Failure(path, WhyNotOpened(status.st_mode, EACCES));
    }
    const Descriptor file = Open(path, O_WRONLY);
    if (!file) {
        return Failure(path, WhyNotOpened(status.st_mode, errno));
    }
    return S_ISREG(StatusOf(*file).st_mode) ? Replace(path, *file, bytes)
                                            : WriteStraight(path, *file, bytes);
}

Error WriteNewFile(const std::string& path, std::string_view bytes, FileClaim* claim) {
    FilePlace place;
    if (Error error = FindPlace(path, place)) {
        return error;
    }
    TemporaryFile file(*place.folder, NewFilePrefix, OwnerOnly);
    if (!file.IsOpen() || !WriteAt(file.Handle(), bytes, 0) || ::fsync(file.Handle()) != 0 ||
        !file.MoveToNew(place.name)) {
        return Failure(path, Reason(errno));
    }
    if (claim != nullptr) {
        *claim = ClaimBy(file.LockedHandle());
    }
    return Finish(place, NewFilePrefix);
}

std::vector<std::string> FilesIn(const std::string& folder) {
    const Descriptor place = Open(folder, O_RDONLY | O_DIRECTORY);
    return place ? FilesIn(*place) : std::vector<std::string>();
}

void SurviveFailedWrites() {
    std::signal(SIGXFSZ, SIG_IGN);
    std::signal(SIGPIPE, SIG_IGN);
    // Opened the wrong way round, so that using them fails as before.
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream) {
        if (::fcntl(stream, F_GETFD) == -1) {
            (void)::open("/dev/null", stream == STDIN_FILENO ? O_WRONLY : O_RDONLY);
        }
    }
}

}  // namespace varno
