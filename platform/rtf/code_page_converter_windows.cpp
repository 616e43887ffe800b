#include "platform/rtf/code_page_converter.h"

#include <windows.h>

namespace varno {

CodePageDecoder::Converter::Converter(int codePage) : handle_(codePage) {}

CodePageDecoder::Converter::~Converter() = default;

bool CodePageDecoder::Converter::Known() const {
    return IsValidCodePage(static_cast<UINT>(handle_)) != 0;
}

void CodePageDecoder::Converter::Append(std::u16string& text, std::string_view bytes) {
    const auto codePage = static_cast<UINT>(handle_);
    const int size = static_cast<int>(bytes.size());
    const int length = MultiByteToWideChar(codePage, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(codePage, 0, bytes.data(), size, wide.data(), length);
    text.append(wide.begin(), wide.end());
}

}  // namespace varno
