#include "block/rows.h"

namespace varno {

int LeadingNumber(std::string_view text) {
    int number = 0;
    for (const char c : text) {
        if (c < '0' || c > '9' || number > 9999) {
            break;
        }
        number = number * 10 + (c - '0');
    }
    return number;
}

char RowKeyLetter(std::string_view row) {
    return row.empty() ? '\0' : row.back();
}

std::string UnboundRow(std::string_view row) {
    return std::string(row.substr(0, 3));
}

std::string BoundRow(std::string_view row, char keyLetter) {
    return UnboundRow(row) + "  " + keyLetter;
}

}  // namespace varno
