// What is wrong with a block file, for an operator to read. The program itself opens any file;
// the indicator refuses or misreads a damaged one.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace varno {

// One sentence for each fault; empty for a sound file. Places are columns of the file's line.
std::vector<std::string> FaultsOf(std::string_view fileBytes);
std::vector<std::string> FaultsInImage(const std::string& image);

// The image that a block file holds: its text up to the first comma or line end.
std::string ImageIn(std::string_view fileBytes);

}  // namespace varno
