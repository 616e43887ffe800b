#include "platform/files.h"

#include <fcntl.h>
#include <io.h>
#include <process.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>
#include <vector>

namespace varno {

namespace {

namespace fs = std::filesystem;

constexpr DWORD LongestWait = 10'000;  // milliseconds

using Handle = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

fs::path ToPath(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

Handle OpenFile(const fs::path& path, const wchar_t* mode) {
    return {::_wfopen(path.c_str(), mode), &std::fclose};
}

Error Failure(const std::string& path, int error) {
    return path + ": " + std::generic_category().message(error);
}

bool WriteAndFlush(Handle file, std::string_view bytes) {
    return file && std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
           std::fflush(file.get()) == 0 && ::_commit(::_fileno(file.get())) == 0;
}

}  // namespace

Error ReadFile(const std::string& path, std::string& bytes, std::size_t most) {
    std::error_code error;
    if (fs::exists(ToPath(path), error) && !fs::is_regular_file(ToPath(path), error)) {
        return path + ": this is no ordinary file";
    }
    const Handle file = OpenFile(ToPath(path), L"rb");
    if (!file) {
        return Failure(path, errno);
    }
    std::string read;
    std::vector<char> chunk(1 << 16);
    std::size_t got = 0;
    while ((got = std::fread(chunk.data(), 1, std::min(chunk.size(), most - read.size()),
                             file.get())) > 0) {
        read.append(chunk.data(), got);
    }
    if (std::ferror(file.get()) != 0) {
        return Failure(path, errno);
    }
    bytes = std::move(read);
    return std::nullopt;
}

Error WriteFile(const std::string& path, std::string_view bytes) {
    const fs::path target = ToPath(path);
    const fs::path temporary =
        target.parent_path() / (".varno-" + std::to_string(::_getpid()) + ".tmp");
    if (!WriteAndFlush(OpenFile(temporary, L"wbx"), bytes)) {
        const Error failure = Failure(path, errno);
        ::_wremove(temporary.c_str());
        return failure;
    }
    // The file that takes the place keeps the rights and attributes of the one that was there.
    if (::ReplaceFileW(target.c_str(), temporary.c_str(), nullptr, 0, nullptr, nullptr) != 0 ||
        ::MoveFileExW(temporary.c_str(), target.c_str(), MOVEFILE_WRITE_THROUGH) != 0) {
        return std::nullopt;
    }
    const Error failure =
        path + ": " + std::system_category().message(static_cast<int>(::GetLastError()));
    ::_wremove(temporary.c_str());
    return failure;
}

Error WriteNewFile(const std::string& path, std::string_view bytes, FileClaim* claim) {
    const fs::path target = ToPath(path);
    const fs::path temporary =
        target.parent_path() / (".varno-new-" + std::to_string(::_getpid()) + ".tmp");
    const bool written = WriteAndFlush(OpenFile(temporary, L"wb"), bytes) &&
                         ::MoveFileExW(temporary.c_str(), target.c_str(), 0) != 0;
    if (!written) {
        ::_wremove(temporary.c_str());
    }
    if (written && claim != nullptr) {
        *claim = ClaimFile(path);
    }
    return written ? std::nullopt : Failure(path, errno);
}

// Others may read and remove the file, but nobody else gets it for writing.
FileClaim ClaimFile(const std::string& path) {
    const HANDLE file = ::CreateFileW(ToPath(path).c_str(), GENERIC_READ | GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                                      FILE_ATTRIBUTE_NORMAL, nullptr);
    return file == INVALID_HANDLE_VALUE ? nullptr : FileClaim(file, &::CloseHandle);
}

std::optional<bool> IsFileClaimed(const std::string& path) {
    const HANDLE file = ::CreateFileW(ToPath(path).c_str(), GENERIC_WRITE,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
        ::CloseHandle(file);
        return false;
    }
    return ::GetLastError() == ERROR_SHARING_VIOLATION ? std::optional(true) : std::nullopt;
}

std::vector<std::string> FilesIn(const std::string& folder) {
    std::vector<std::string> files;
    std::error_code error;
    for (fs::directory_iterator entry(ToPath(folder), error), end; !error && entry != end;
         entry.increment(error)) {
        std::error_code gone;
        if (!entry->is_symlink(gone) && entry->is_regular_file(gone)) {
            const std::u8string name = entry->path().filename().u8string();
            files.emplace_back(name.begin(), name.end());
        }
    }
    return files;
}

void SurviveFailedWrites() {}  // here a failed write is never a signal

struct FileLock::Held {
    HANDLE mutex;
    ~Held() {
        ::ReleaseMutex(mutex);
        ::CloseHandle(mutex);
    }
};

FileLock::FileLock() = default;
FileLock::~FileLock() = default;

Error FileLock::Take(const std::string& path) {
    std::error_code error;
    const fs::path file = fs::weakly_canonical(ToPath(path), error);
    const auto name = L"varno-" + std::to_wstring(std::hash<std::wstring>()(file.wstring()));
    const HANDLE mutex = ::CreateMutexW(nullptr, FALSE, name.c_str());
    if (mutex == nullptr) {
        return std::nullopt;
    }
    if (::WaitForSingleObject(mutex, LongestWait) == WAIT_TIMEOUT) {
        ::CloseHandle(mutex);
        return path + ": another program has been changing this file for 10 seconds";
    }
    held_.reset(new Held{mutex});
    return std::nullopt;
}

}  // namespace varno
