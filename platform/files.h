// Whole files, read and written. Paths and texts are UTF-8; contents are bytes.
#pragma once

#include <string>
#include <string_view>

#include "platform/error.h"

namespace varno {

// Reads the whole file into `bytes`; on failure `bytes` is left as it is.
[[nodiscard]] Error ReadFile(const std::string& path, std::string& bytes);

// Writes through a temporary file in the same folder, flushed to disk and renamed over the old one:
// a reader finds the old file or the new one, never a part. A failure leaves the old file whole.
[[nodiscard]] Error WriteFile(const std::string& path, std::string_view bytes);

bool FileExists(const std::string& path);

// File names compare without regard to letter case. Where `path` does not exist and exactly one
// file of its folder differs from it in letter case only, that file's path; otherwise `path`.
std::string FileMeantBy(const std::string& path);

}  // namespace varno
