// One converter of the system, from a code page to UTF-16.
#pragma once

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
#ifdef _WIN32
    unsigned codePage_;
#else
    void* handle_;
#endif
};

}  // namespace varno
