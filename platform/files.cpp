#include "platform/files.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <vector>

namespace varno {
namespace {

namespace fs = std::filesystem;

fs::path ToPath(const std::string& utf8) {
    return {std::u8string(utf8.begin(), utf8.end())};
}

std::string ToUtf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

// Only the letters of ASCII are folded: the names in question end in ".VRT" or ".VRB".
std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return text;
}

}  // namespace

Error MakeFolder(const std::string& path) {
    std::error_code error;
    if (fs::is_directory(ToPath(path), error)) {
        return std::nullopt;
    }
    fs::create_directories(ToPath(path), error);
    if (!error) {
        fs::permissions(ToPath(path), fs::perms::owner_all, error);
    }
    return error ? Error(path + ": " + error.message()) : std::nullopt;
}

Error FolderTrouble(const std::string& folder) {
    std::error_code error;
    const fs::directory_iterator readable(ToPath(folder), error);
    return error && error != std::errc::no_such_file_or_directory
               ? Error(folder + ": " + error.message())
               : std::nullopt;
}

Error RemoveFile(const std::string& path) {
    std::error_code error;
    return fs::remove(ToPath(path), error) ? std::nullopt : Error(path + ": " + error.message());
}

std::uintmax_t FileBytes(const std::string& path) {
    std::error_code error;
    const std::uintmax_t bytes = fs::file_size(ToPath(path), error);
    return error ? 0 : bytes;
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
