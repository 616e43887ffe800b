#include "block/parse.h"

#include <algorithm>
#include <string>
#include <vector>

namespace varno {

namespace {

// " " and the letter of the first key bound to the ticket, or nothing.
std::string KeyMark(const TicketBlock& block, int ticketNumber) {
    const auto key = std::find(block.KeyTicket.begin(), block.KeyTicket.end(), ticketNumber);
    if (key == block.KeyTicket.end()) {
        return {};
    }
    return {' ', KeyLetter(static_cast<int>(key - block.KeyTicket.begin()))};
}

}  // namespace

void ParseTicketBuffer(TicketBlock& block, ListBox& ticketList, Label& message) {
    message.SetCaption("");
    std::vector<std::string> rows;
    block.LoadKeys();
    for (const int ticketNumber : block.Tickets()) {
        rows.push_back(std::to_string(ticketNumber));
    }
    // The list sorts by itself, but a long list of a wrong file fills much faster in order.
    std::sort(rows.begin(), rows.end());
    for (const std::string& row : rows) {
        ticketList.AddItem(row);
    }
    for (int i = 0; i < ticketList.ListCount(); ++i) {
        const std::string row = ticketList.List(i);
        if (const std::string mark = KeyMark(block, LeadingNumber(row)); !mark.empty()) {
            ticketList.SetItem(i, row + mark);
        }
    }
}

}  // namespace varno
