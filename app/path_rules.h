// What the names of files become in the window: labels and remembered folders.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace varno {

// The path without its folders. A path that holds "/" is cut at "/" only; any other one at "\" and
// ":".
std::string BareName(std::string_view path);

// What stands in front of the first occurrence of the bare name, separator included.
std::string FolderOf(std::string_view path, std::string_view bareName);

// The bare name in front of the first occurrence of the extension letters, whatever their case,
// less the dot. Nothing if the letters do not occur or stand at the very start.
std::optional<std::string> LabelForm(std::string_view bareName, std::string_view extension);

// Whether the path ends in the extension letters, whatever their case.
bool EndsIn(std::string_view path, std::string_view extension);

}  // namespace varno
