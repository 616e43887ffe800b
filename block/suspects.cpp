#include "block/suspects.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <span>

#include "codec/code_name.h"
#include "paper/layout.h"

namespace varno {
namespace {

using Sentences = std::vector<std::string>;

std::string Ticket(int number) {
    return "Ticket " + std::to_string(number);
}

// "a", "a and b", "a, b and c".
std::string Listed(const std::vector<std::string>& names) {
    std::string list;
    for (std::size_t i = 0; i < names.size(); ++i) {
        list += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    }
    return list;
}

bool IsCode(Word word) {
    return ClassOf(word) == ControlCodeClass || ClassOf(word) == PrintCodeClass;
}

template <class Condition>
std::vector<std::string> NamesOfWords(const TicketRecord& ticket, Condition condition) {
    std::set<Word> found;
    std::copy_if(ticket.body.begin(), ticket.body.end(), std::inserter(found, found.end()),
                 condition);
    std::vector<std::string> names;
    std::transform(found.begin(), found.end(), std::back_inserter(names), CodeName);
    return names;
}

void JudgeWords(const TicketRecord& ticket, const CodeIsKnown& isKnown, Sentences& suspects) {
    const auto unknown =
        NamesOfWords(ticket, [&](Word word) { return IsCode(word) && !isKnown(word); });
    if (!unknown.empty()) {
        suspects.push_back(Ticket(ticket.number) + ": no catalogue has " + Listed(unknown) + ".");
    }
    const auto other = NamesOfWords(
        ticket, [](Word word) { return !IsCode(word) && ClassOf(word) != CharacterClass; });
    if (!other.empty()) {
        suspects.push_back(Ticket(ticket.number) + ": " + Listed(other) + " is no code.");
    }
}

// The effects, and none for the words of which the paper shows no more than their names.
Effects KnownEffects(std::span<const Word> body, const Effects& effects) {
    Effects known = effects;
    for (const PaperRow& row : LayOut(body, effects).rows) {
        for (const PaperCell& cell : row.cells) {
            if (cell.origin == PaperCell::Origin::Box) {
                known.codes.try_emplace(cell.word);
            }
        }
    }
    return known;
}

// The number of the printed line that holds the word at `index`, as it stands in texts.
std::size_t LineAt(std::span<const Word> body, std::size_t index) {
    std::size_t line = 1;
    for (std::size_t i = 1; i < index; ++i) {
        line += body[i - 1] == '\r' && body[i] == '\n' ? 1 : 0;
    }
    return line;
}

void JudgeLines(const TicketRecord& ticket, const Paper& paper, Sentences& suspects) {
    std::vector<std::string> lines;
    bool goesOn = false;
    for (const PaperRow& row : paper.rows) {
        if (row.breaks && !goesOn) {
            lines.push_back(std::to_string(LineAt(ticket.body, row.begin)));
        }
        goesOn = row.breaks;
    }
    if (!lines.empty()) {
        suspects.push_back(Ticket(ticket.number) + ": lines wider than the " +
                           std::to_string(paper.width) + " columns of the paper: " + Listed(lines) +
                           ".");
    }
}

void JudgeStyles(const TicketRecord& ticket, const Paper& paper, Sentences& suspects) {
    std::vector<std::string> left;
    for (const auto& [style, name] : StyleNames) {
        if ((paper.stylesLeft & style) != 0) {
            left.emplace_back(name);
        }
    }
    if (!left.empty()) {
        suspects.push_back(Ticket(ticket.number) + " switches on and never off: " + Listed(left) +
                           ".");
    }
}

void JudgeTicket(const TicketRecord& ticket, const CodeIsKnown& isKnown, const Effects& effects,
                 Sentences& suspects) {
    JudgeWords(ticket, isKnown, suspects);
    const Paper paper = LayOut(ticket.body, KnownEffects(ticket.body, effects));
    JudgeLines(ticket, paper, suspects);
    JudgeStyles(ticket, paper, suspects);
}

// The names of the keys that print the ticket; those that print none, of 0.
std::vector<std::string> KeysOf(const BlockContent& content, int number) {
    std::vector<std::string> keys;
    for (std::size_t key = 0; key < KeyCount; ++key) {
        if (ValueOf(content.keys[key]) == number) {
            keys.emplace_back(KeyNames[key]);
        }
    }
    return keys;
}

void JudgeKeys(const BlockContent& content, Sentences& suspects) {
    std::vector<std::string> unbound;
    for (const TicketRecord& ticket : content.tickets) {
        const auto keys = KeysOf(content, ticket.number);
        if (keys.empty()) {
            unbound.push_back(std::to_string(ticket.number));
        } else if (keys.size() > 1) {
            suspects.push_back(Ticket(ticket.number) + " is bound to " + Listed(keys) + ".");
        }
    }
    // With more tickets than keys some are always without.
    const auto idle = KeysOf(content, 0);
    if (!idle.empty() && !unbound.empty()) {
        suspects.push_back("Keys without a ticket: " + Listed(idle) +
                           "; tickets without a key: " + Listed(unbound) + ".");
    }
}

}  // namespace

std::vector<std::string> SuspectsIn(BlockContent content, const CodeIsKnown& isKnown,
                                    const Effects& effects) {
    std::sort(content.tickets.begin(), content.tickets.end(),
              [](const auto& one, const auto& other) { return one.number < other.number; });
    Sentences suspects;
    for (const TicketRecord& ticket : content.tickets) {
        JudgeTicket(ticket, isKnown, effects, suspects);
    }
    JudgeKeys(content, suspects);
    if (!content.fill.empty()) {
        suspects.push_back(
            "Words are left over behind the keys: " + std::to_string(content.fill.size()) + ".");
    }
    return suspects;
}

}  // namespace varno
