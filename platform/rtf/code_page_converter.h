// One converter of the system, from a code page to UTF-16.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/rtf/code_pages.h"

namespace varno {

class CodePageDecoder::Converter {
  public:
    explicit Converter(int codePage);
    ~Converter();
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;

    bool Known() const;
    void Append(std::u16string& text, std::string_view bytes);

  private:
    std::intptr_t handle_;  // the system's own, or the code page where it needs none
};

}  // namespace varno
