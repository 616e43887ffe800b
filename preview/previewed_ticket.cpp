#include "preview/previewed_ticket.h"

#include <algorithm>

#include "codec/encoder.h"
#include "paper/layout.h"

namespace varno {

PreviewedTicket PreviewOf(const MarkedText& ticket, const Effects& effects) {
    const std::vector<PlacedWord> placed = EncodeBody(ticket);
    std::vector<Word> body;
    std::vector<std::size_t> positions;
    body.reserve(placed.size());
    positions.reserve(placed.size() + 1);
    for (const PlacedWord& each : placed) {
        body.push_back(each.word);
        positions.push_back(each.position);
    }
    positions.push_back(ticket.Length());
    return {LayOut(body, effects), std::move(positions)};
}

PaperPlace PlaceOfCaret(const PreviewedTicket& ticket, std::size_t caret) {
    const auto words = ticket.positions.end() - 1;
    const auto next = std::lower_bound(ticket.positions.begin(), words, caret);
    return PlaceOf(ticket.paper, static_cast<std::size_t>(next - ticket.positions.begin()));
}

std::size_t CaretAt(const PreviewedTicket& ticket, PaperPlace place) {
    return ticket.positions[WordAt(ticket.paper, place)];
}

}  // namespace varno
