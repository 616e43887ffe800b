#include "block/rows.h"

namespace varno {

std::string TicketNumbers(std::string_view between) {
    return std::to_string(FirstTicketNumber) + std::string(between) +
           std::to_string(LastTicketNumber);
}

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

void AssignKey(std::vector<std::string>& rows, std::size_t selected, int key, bool bind) {
    const char letter = KeyLetter(key);
    for (std::string& row : rows) {
        if (bind && RowKeyLetter(row) == letter) {
            row = UnboundRow(row);
        }
    }
    rows[selected] = bind ? BoundRow(rows[selected], letter) : UnboundRow(rows[selected]);
}

KeyTickets KeysOf(const std::vector<std::string>& rows) {
    KeyTickets keys{};
    for (const std::string& row : rows) {
        for (int key = 0; key < KeyCount; ++key) {
            if (RowKeyLetter(row) == KeyLetter(key)) {
                keys[static_cast<std::size_t>(key)] = LeadingNumber(row);
            }
        }
    }
    return keys;
}

}  // namespace varno
