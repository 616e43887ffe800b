// Block files (.VRB): one line, the image, ended by CR LF.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/error.h"

namespace varno {

// An image has 8007 characters. Longer ones are read all the same, but nothing behind this many
// bytes of a file or a pipe, whose end may never come.
inline constexpr std::size_t MostBlockFileBytes = 1 << 18;

// The image that a block file holds, whatever it is: the text up to the first comma or line end.
std::string ImageIn(std::string_view fileBytes);

// On failure `image` is left as it is. A file that goes on and on without a comma or a line end
// fails, any other text is an image.
[[nodiscard]] Error ReadBlockFile(const std::string& path, std::string& image);

std::string BlockFileBytes(const std::string& image);
[[nodiscard]] Error WriteBlockFile(const std::string& path, const std::string& image);

// What is wrong with an image or a block file, for an operator to read: one sentence for each
// fault, empty for a sound one. The window opens any; the indicator refuses or misreads a damaged
// one. Places are columns of the file's line.
std::vector<std::string> FaultsInImage(const std::string& image);
std::vector<std::string> FaultsInBlockFile(std::string_view fileBytes);

}  // namespace varno
