// Marked text and catalogues hold UTF-16, the controls UTF-8.
#pragma once

#include <string>
#include <string_view>

namespace varno {

// What is no valid encoding becomes U+FFFD.
std::string ToUtf8(std::u16string_view text);
std::u16string FromUtf8(std::string_view text);

}  // namespace varno
