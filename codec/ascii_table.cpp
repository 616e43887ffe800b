#include "codec/ascii_table.h"

#include <bitset>
#include <cstdio>
#include <string_view>

namespace varno {

std::array<std::string, 32> AsciiTable() {
    static constexpr std::string_view Names =
        "NUSOSTETEOENACBEBSHTLFVTFFCRSOSI"
        "DLDCDCDCDCNASYETCAEMEOESFSGSRSUS";
    std::array<std::string, 32> rows;
    for (unsigned code = 0; code < rows.size(); ++code) {
        char start[16];
        std::snprintf(start, sizeof start, "%3u   %02X  ", code, code);
        rows[code] = start + std::bitset<8>(code).to_string() + "  ^" +
                     static_cast<char>(code + 64) + "  " +
                     std::string(Names.substr(std::size_t{2} * code, 2));
    }
    return rows;
}

}  // namespace varno
