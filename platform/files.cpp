#include "platform/files.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#ifdef _WIN32
#include <io.h>
#include <process.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace varno {
namespace {

namespace fs = std::filesystem;

using Handle = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

fs::path ToPath(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string ToUtf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

Handle OpenFile(const fs::path& path, const char* mode) {
    return {std::fopen(path.string().c_str(), mode), &std::fclose};
}

std::string Describe(const std::string& path, int error) {
    return path + ": " + std::system_category().message(error);
}

bool FlushToDisk(std::FILE* file) {
    if (std::fflush(file) != 0) {
        return false;
    }
#ifdef _WIN32
    return _commit(_fileno(file)) == 0;
#else
    return fsync(fileno(file)) == 0;
#endif
}

int ProcessId() {
#ifdef _WIN32
    return _getpid();
#else
    return getpid();
#endif
}

// The file that `path` leads to, so that saving through a link keeps the link.
fs::path BehindLinks(const fs::path& path) {
    std::error_code error;
    fs::path target = fs::weakly_canonical(path, error);
    return error ? path : target;
}

// The new file keeps the rights of the old one.
void CopyRights(const fs::path& from, const fs::path& to) {
    std::error_code error;
    const fs::file_status status = fs::status(from, error);
    if (!error && fs::exists(status)) {
        fs::permissions(to, status.permissions(), error);
    }
}

// Only the letters of ASCII are folded: the names in question end in ".VRT" or ".VRB".
std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return text;
}

}  // namespace

Error ReadFile(const std::string& path, std::string& bytes) {
    std::error_code folderCheck;
    if (fs::is_directory(ToPath(path), folderCheck)) {
        return Describe(path, EISDIR);
    }
    const Handle file = OpenFile(ToPath(path), "rb");
    if (!file) {
        return Describe(path, errno);
    }
    std::string read;
    std::vector<char> chunk(1 << 16);
    std::size_t got = 0;
    while ((got = std::fread(chunk.data(), 1, chunk.size(), file.get())) > 0) {
        read.append(chunk.data(), got);
    }
    if (std::ferror(file.get()) != 0) {
        return Describe(path, errno);
    }
    bytes = std::move(read);
    return std::nullopt;
}

Error WriteFile(const std::string& path, std::string_view bytes) {
    const fs::path target = BehindLinks(ToPath(path));
    const fs::path temporary = fs::path(target).concat("." + std::to_string(ProcessId()) + ".tmp");
    const auto fail = [&](int error) -> Error {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        return Describe(path, error);
    };

    Handle file = OpenFile(temporary, "wb");
    if (!file) {
        return Describe(path, errno);
    }
    const bool written = std::fwrite(bytes.data(), 1, bytes.size(), file.get()) == bytes.size() &&
                         FlushToDisk(file.get());
    const int writeError = errno;
    const bool closed = std::fclose(file.release()) == 0;
    if (!written || !closed) {
        return fail(written ? errno : writeError);
    }
    CopyRights(target, temporary);
    std::error_code error;
    fs::rename(temporary, target, error);
    if (error) {
        return fail(error.value());
    }
    return std::nullopt;
}

bool FileExists(const std::string& path) {
    std::error_code error;
    return fs::exists(ToPath(path), error);
}

std::string FileMeantBy(const std::string& path) {
    if (FileExists(path)) {
        return path;
    }
    const fs::path wanted = ToPath(path);
    const std::string name = LowerCase(ToUtf8(wanted.filename()));
    const fs::path folder = wanted.has_parent_path() ? wanted.parent_path() : fs::path(".");
    std::vector<fs::path> found;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
        if (LowerCase(ToUtf8(entry->path().filename())) == name) {
            found.push_back(entry->path().filename());
        }
    }
    return found.size() == 1 ? ToUtf8(wanted.parent_path() / found.front()) : path;
}

}  // namespace varno
