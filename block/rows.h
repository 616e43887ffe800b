// The rows of `TicketList`: a ticket number, and blanks and a key letter if a key is bound to it.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace varno {

inline constexpr int FirstTicketNumber = 200;
inline constexpr int LastTicketNumber = 999;

constexpr bool IsTicketNumber(int number) {
    return number >= FirstTicketNumber && number <= LastTicketNumber;
}

// The first and the last, as sentences name them: "200 to 999".
std::string TicketNumbers(std::string_view between);

inline constexpr int KeyCount = 4;
inline constexpr int NoKey = -1;

// The keys of the indicator, in the order of their key words. The first letter is the key letter.
inline constexpr std::array<std::string_view, KeyCount> KeyNames = {"Print", "Start", "In", "Out"};

// The ticket bound to each key, 0 for none.
using KeyTickets = std::array<int, KeyCount>;

constexpr char KeyLetter(int key) {
    return KeyNames[static_cast<std::size_t>(key)].front();
}

// The number that the leading digits of a row, or of the number box, write; 0 without any. Numbers
// no ticket can have come out as some number above 9999.
int LeadingNumber(std::string_view text);

// The last character: the key letter, or a digit if no key is bound; 0 for an empty row.
char RowKeyLetter(std::string_view row);

// The row without, and with, a key letter, as a key assignment writes it. Ticket numbers have
// three digits: whatever stands behind the third character goes.
std::string UnboundRow(std::string_view row);
std::string BoundRow(std::string_view row, char keyLetter);

// Binds the selected row to a key, which leaves the row that had it, or takes the selected row's
// key away.
void AssignKey(std::vector<std::string>& rows, std::size_t selected, int key, bool bind);

// The keys as the letters of the rows say; a later row wins.
KeyTickets KeysOf(const std::vector<std::string>& rows);

}  // namespace varno
