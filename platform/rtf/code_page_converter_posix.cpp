#include "platform/rtf/code_page_converter.h"

#include <iconv.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstddef>

namespace varno {

namespace {

struct IconvName {
    int codePage;
    const char* name;
};

// Code pages that the system calls by another name than "CP" and the number.
constexpr std::array IconvNames = {
    IconvName{code_pages::MacRoman, "MACINTOSH"},
    IconvName{code_pages::Utf8, "UTF-8"},
    IconvName{1361, "JOHAB"},
    IconvName{10001, "SHIFT_JIS"},
    IconvName{10002, "BIG5"},
    IconvName{10003, "EUC-KR"},
    IconvName{10007, "MAC-CYRILLIC"},
    IconvName{10008, "GB2312"},
    IconvName{10029, "MAC-CENTRALEUROPE"},
};

constexpr std::intptr_t InvalidHandle = -1;

std::intptr_t OpenConverter(int codePage) {
    const auto* row = std::find_if(IconvNames.begin(), IconvNames.end(),
                                   [=](const IconvName& r) { return r.codePage == codePage; });
    const std::string name =
        row == IconvNames.end() ? "CP" + std::to_string(codePage) : std::string(row->name);
    return reinterpret_cast<std::intptr_t>(iconv_open("UTF-16LE", name.c_str()));
}

void AppendUnits(std::u16string& text, std::string_view littleEndian) {
    for (std::size_t i = 0; i + 1 < littleEndian.size(); i += 2) {
        const auto low = static_cast<unsigned char>(littleEndian[i]);
        const auto high = static_cast<unsigned char>(littleEndian[i + 1]);
        text += static_cast<char16_t>(low | (high << 8));
    }
}

constexpr char16_t Undecodable = u'\uFFFD';

}  // namespace

CodePageDecoder::Converter::Converter(int codePage) : handle_(OpenConverter(codePage)) {}

CodePageDecoder::Converter::~Converter() {
    if (Known()) {
        iconv_close(reinterpret_cast<iconv_t>(handle_));
    }
}

bool CodePageDecoder::Converter::Known() const {
    return handle_ != InvalidHandle;
}

void CodePageDecoder::Converter::Append(std::u16string& text, std::string_view bytes) {
    const auto converter = reinterpret_cast<iconv_t>(handle_);
    std::string input(bytes);
    char* next = input.data();
    std::size_t left = input.size();
    bool flushed = false;  // some sets hold a letter back until they know its accent
    while (!flushed) {
        flushed = left == 0;
        std::array<char, 1024> buffer;
        char* out = buffer.data();
        std::size_t room = buffer.size();
        const std::size_t result = iconv(converter, flushed ? nullptr : &next, &left, &out, &room);
        const bool stuck = result == static_cast<std::size_t>(-1) && errno != E2BIG;
        AppendUnits(text, {buffer.data(), buffer.size() - room});
        if (stuck && left > 0) {  // no such character, or its second byte is missing
            text += Undecodable;
            ++next;
            --left;
        }
    }
}

}  // namespace varno
