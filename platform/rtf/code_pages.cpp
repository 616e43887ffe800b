#include "platform/rtf/code_pages.h"

#include <algorithm>
#include <array>

#include "codec/windows1252.h"
#include "platform/rtf/code_page_converter.h"

namespace varno {
namespace {

struct CharsetRow {
    int charset;
    int codePage;
};

constexpr std::array CharsetRows = {
    CharsetRow{0, 1252},
    CharsetRow{2, code_pages::Symbol},
    CharsetRow{77, 10000},
    CharsetRow{78, 10001},
    CharsetRow{79, 10003},
    CharsetRow{80, 10008},
    CharsetRow{81, 10002},
    CharsetRow{83, 10005},
    CharsetRow{84, 10004},
    CharsetRow{85, 10006},
    CharsetRow{86, 10081},
    CharsetRow{88, 10029},
    CharsetRow{89, 10007},
    CharsetRow{128, 932},
    CharsetRow{129, 949},
    CharsetRow{130, 1361},
    CharsetRow{134, 936},
    CharsetRow{136, 950},
    CharsetRow{161, 1253},
    CharsetRow{162, 1254},
    CharsetRow{163, 1258},
    CharsetRow{177, 1255},
    CharsetRow{178, 1256},
    CharsetRow{186, 1257},
    CharsetRow{204, 1251},
    CharsetRow{222, 874},
    CharsetRow{238, 1250},
    CharsetRow{254, code_pages::Dos},
    CharsetRow{255, code_pages::DosLatin1},
};

// No honest document needs more; a damaged one may name thousands.
constexpr std::size_t MostConverters = 64;

// From code 0x20 and from code 0xA0 on, as Adobe defined the font.
constexpr std::u16string_view SymbolLow =
    u" !\u2200#\u2203%&\u220B()\u2217+,\u2212./0123456789:;<=>?"
    u"\u2245\u0391\u0392\u03A7\u0394\u0395\u03A6\u0393\u0397\u0399\u03D1\u039A\u039B\u039C\u039D"
    u"\u039F\u03A0\u0398\u03A1\u03A3\u03A4\u03A5\u03C2\u03A9\u039E\u03A8\u0396[\u2234]\u22A5_"
    u"\u203E\u03B1\u03B2\u03C7\u03B4\u03B5\u03C6\u03B3\u03B7\u03B9\u03D5\u03BA\u03BB\u03BC\u03BD"
    u"\u03BF\u03C0\u03B8\u03C1\u03C3\u03C4\u03C5\u03D6\u03C9\u03BE\u03C8\u03B6{|}\u223C";
constexpr std::u16string_view SymbolHigh =
    u"\u20AC\u03D2\u2032\u2264\u2044\u221E\u0192\u2663\u2666\u2665\u2660\u2194\u2190\u2191\u2192"
    u"\u2193\u00B0\u00B1\u2033\u2265\u00D7\u221D\u2202\u2022\u00F7\u2260\u2261\u2248\u2026\u23D0"
    u"\u23AF\u21B5\u2135\u2111\u211C\u2118\u2297\u2295\u2205\u2229\u222A\u2283\u2287\u2284\u2282"
    u"\u2286\u2208\u2209\u2220\u2207\u00AE\u00A9\u2122\u220F\u221A\u22C5\u00AC\u2227\u2228\u21D4"
    u"\u21D0\u21D1\u21D2\u21D3\u25CA\u2329\u00AE\u00A9\u2122\u2211\u239B\u239C\u239D\u23A1\u23A2"
    u"\u23A3\u23A7\u23A8\u23A9\u23AA\u0000\u232A\u222B\u2320\u23AE\u2321\u239E\u239F\u23A0\u23A4"
    u"\u23A5\u23A6\u23AB\u23AC\u23AD";

// 0 where the font has none.
char16_t SymbolOf(unsigned code) {
    const bool high = code >= 0xA0;
    const std::u16string_view half = high ? SymbolHigh : SymbolLow;
    const unsigned first = high ? 0xA0 : 0x20;
    return code >= first && code - first < half.size() ? half[code - first] : u'\0';
}

// Unicode keeps this place for fonts with pictures of their own; the code is the low byte.
constexpr unsigned SymbolPlace = 0xF000;

}  // namespace

std::optional<int> CodePageOfCharset(int charset) {
    const auto* row = std::find_if(CharsetRows.begin(), CharsetRows.end(),
                                   [=](const CharsetRow& r) { return r.charset == charset; });
    return row == CharsetRows.end() ? std::nullopt : std::optional(row->codePage);
}

std::u16string SymbolFontText(std::u16string_view text) {
    std::u16string mapped(text);
    for (char16_t& unit : mapped) {
        const char16_t symbol = (unit & 0xFF00U) == SymbolPlace ? SymbolOf(unit & 0xFFU) : u'\0';
        unit = symbol == 0 ? unit : symbol;
    }
    return mapped;
}

CodePageDecoder::CodePageDecoder() = default;
CodePageDecoder::~CodePageDecoder() = default;

CodePageDecoder::Converter* CodePageDecoder::ConverterFor(int codePage) {
    auto found = converters_.find(codePage);
    if (found == converters_.end()) {
        if (converters_.size() == MostConverters) {
            return nullptr;
        }
        found = converters_.emplace(codePage, std::make_unique<Converter>(codePage)).first;
    }
    return found->second->Known() ? found->second.get() : nullptr;
}

void CodePageDecoder::Append(std::u16string& text, int codePage, std::string_view bytes) {
    const bool ascii = std::all_of(bytes.begin(), bytes.end(),
                                   [](char c) { return static_cast<unsigned char>(c) < 0x80; });
    if (codePage == code_pages::Symbol) {
        for (const char byte : bytes) {
            const auto code = static_cast<unsigned char>(byte);
            text += static_cast<char16_t>(code < 0x20 ? code : SymbolPlace + code);
        }
    } else if (ascii) {
        text.append(bytes.begin(), bytes.end());
    } else if (codePage == code_pages::Windows1252) {
        text += FromWindows1252(bytes);
    } else if (Converter* converter = ConverterFor(codePage)) {
        converter->Append(text, bytes);
    } else {
        text += FromWindows1252(bytes);
    }
}

}  // namespace varno
