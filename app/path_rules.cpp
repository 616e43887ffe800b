#include "app/path_rules.h"

#include <algorithm>

namespace varno {
namespace {

char UpperCase(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool SameLetter(char a, char b) {
    return UpperCase(a) == UpperCase(b);
}

}  // namespace

std::string BareName(std::string_view path) {
    const bool slashes = path.find('/') != std::string_view::npos;
    const std::size_t cut = path.find_last_of(slashes ? "/" : "\\:");
    return std::string(cut == std::string_view::npos ? path : path.substr(cut + 1));
}

std::string FolderOf(std::string_view path, std::string_view bareName) {
    const std::size_t found = path.find(bareName);
    return std::string(path.substr(0, found == std::string_view::npos ? 0 : found));
}

std::optional<std::string> LabelForm(std::string_view bareName, std::string_view extension) {
    const auto found = std::search(bareName.begin(), bareName.end(), extension.begin(),
                                   extension.end(), SameLetter);
    if (found == bareName.end() || found == bareName.begin()) {
        return std::nullopt;
    }
    return std::string(bareName.begin(), found - 1);
}

bool EndsIn(std::string_view path, std::string_view extension) {
    return path.size() >= extension.size() &&
           std::equal(extension.begin(), extension.end(),
                      path.end() - static_cast<std::ptrdiff_t>(extension.size()), SameLetter);
}

}  // namespace varno
