#include "block/block_compare.h"

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <iterator>
#include <optional>
#include <set>
#include <span>
#include <utility>

#include "block/image.h"

namespace varno {
namespace {

using Lines = std::vector<std::string>;

std::string Ticket(int number) {
    return "ticket " + std::to_string(number);
}

std::string KeyPhrase(std::size_t key) {
    return "key " + std::string(KeyNames[key]);
}

std::string Printed(Word key) {
    return key == 0 ? "none" : std::to_string(ValueOf(key));
}

std::set<int> Numbers(std::initializer_list<const BlockContent*> blocks) {
    std::set<int> numbers;
    for (const BlockContent* block : blocks) {
        for (const TicketRecord& ticket : block->tickets) {
            numbers.insert(ticket.number);
        }
    }
    return numbers;
}

using LineSpan = std::span<const std::string>;

// Of texts longer than tickets of a block lines that both have count as different where lines
// around them differ.
constexpr std::size_t MostCells = 1 << 22;

// The lines of one that the other has not, in place; those that both have stand between them
// without being shown. By the longest common subsequence.
class LineComparison {
  public:
    LineComparison(LineSpan a, LineSpan b) : a_(a), b_(b) {
        if (a.size() * b.size() > MostCells) {
            return;
        }
        common_.resize((a.size() + 1) * (b.size() + 1));
        for (std::size_t i = a.size(); i-- > 0;) {
            for (std::size_t j = b.size(); j-- > 0;) {
                At(i, j) = a[i] == b[j] ? static_cast<std::uint16_t>(At(i + 1, j + 1) + 1)
                                        : std::max(At(i + 1, j), At(i, j + 1));
            }
        }
    }

    void Tell(Lines& told) {
        std::size_t i = 0;
        std::size_t j = 0;
        while (i < a_.size() || j < b_.size()) {
            if (!common_.empty() && i < a_.size() && j < b_.size() && a_[i] == b_[j]) {
                ++i;
                ++j;
            } else if (i < a_.size() && (j == b_.size() || IsFirstToTell(i, j))) {
                told.push_back("  - " + a_[i++]);
            } else {
                told.push_back("  + " + b_[j++]);
            }
        }
    }

  private:
    bool IsFirstToTell(std::size_t i, std::size_t j) {
        return common_.empty() || At(i + 1, j) >= At(i, j + 1);
    }

    // The lines that the rests from i and j have in common.
    std::uint16_t& At(std::size_t i, std::size_t j) { return common_[i * (b_.size() + 1) + j]; }

    LineSpan a_;
    LineSpan b_;
    std::vector<std::uint16_t> common_;
};

Lines LinesOf(const TicketRecord& ticket, const CodeComment& comment) {
    Lines all = TicketLines(ticket.body, comment);
    if (ticket.end != TicketEnd) {
        all.push_back("end " + WordHex(ticket.end));
    }
    return all;
}

// What one value becomes where two sides changed it; nothing if they disagree.
template <class T>
const T* Agreed(const T& base, const T& ours, const T& theirs) {
    if (ours == theirs || theirs == base) {
        return &ours;
    }
    return ours == base ? &theirs : nullptr;
}

class Merger {
  public:
    Merger(const BlockContent& base, const BlockContent& ours, const BlockContent& theirs)
        : base_(base), ours_(ours), theirs_(theirs) {}

    MergedBlock Run() {
        MergeTickets();
        for (std::size_t key = 0; key < KeyCount; ++key) {
            MergeKey(key);
        }
        Take(&BlockContent::endMarker, "the end marker");
        Take(&BlockContent::fill, "what follows the tickets");
        Take(&BlockContent::smallDigits, "the size of the digits");
        if (merged_.conflicts.empty() && merged_.content.Words() > MemoryDigits / WordDigits) {
            Conflict("the tickets of both sides together are too big for one block");
        }
        return std::move(merged_);
    }

  private:
    void MergeTickets() {
        for (const TicketRecord& ticket : theirs_.tickets) {
            if (ours_.Find(ticket.number) == nullptr) {
                MergeTicket(ticket.number);
            }
        }
        for (const TicketRecord& ticket : ours_.tickets) {
            MergeTicket(ticket.number);
        }
    }

    void MergeTicket(int number) {
        const auto in = [&](const BlockContent& block) {
            const TicketRecord* found = block.Find(number);
            return found == nullptr ? std::optional<TicketRecord>() : *found;
        };
        const auto base = in(base_);
        const auto ours = in(ours_);
        const auto theirs = in(theirs_);
        const auto* agreed = Agreed(base, ours, theirs);
        if (agreed == nullptr) {
            Conflict(Ticket(number) + (!ours || !theirs ? " was changed here and deleted there"
                                                        : " was changed on both sides"));
        } else if (*agreed) {
            merged_.content.tickets.push_back(**agreed);
        }
    }

    void MergeKey(std::size_t key) {
        const Word* agreed = Agreed(base_.keys[key], ours_.keys[key], theirs_.keys[key]);
        if (agreed == nullptr) {
            return Conflict(KeyPhrase(key) + " prints " + Printed(ours_.keys[key]) +
                            " on one side and " + Printed(theirs_.keys[key]) + " on the other");
        }
        merged_.content.keys[key] = *agreed;
        const int ticket = ValueOf(*agreed);
        if (ticket != 0 && merged_.content.Find(ticket) == nullptr && merged_.conflicts.empty()) {
            Conflict(KeyPhrase(key) + " prints " + Ticket(ticket) + ", which one side deleted");
        }
    }

    template <class T>
    void Take(T BlockContent::*member, const std::string& what) {
        const T* agreed = Agreed(base_.*member, ours_.*member, theirs_.*member);
        if (agreed == nullptr) {
            return Conflict(what + " was changed on both sides");
        }
        merged_.content.*member = *agreed;
    }

    void Conflict(std::string what) { merged_.conflicts.push_back(std::move(what)); }

    const BlockContent& base_;
    const BlockContent& ours_;
    const BlockContent& theirs_;
    MergedBlock merged_;
};

}  // namespace

std::vector<std::string> LineDifferences(const TicketRecord& first, const TicketRecord& second,
                                         const CodeComment& comment) {
    const Lines a = LinesOf(first, comment);
    const Lines b = LinesOf(second, comment);
    const auto [differsA, differsB] = std::mismatch(a.begin(), a.end(), b.begin(), b.end());
    const auto [endA, endB] = std::mismatch(a.rbegin(), std::reverse_iterator(differsA), b.rbegin(),
                                            std::reverse_iterator(differsB));
    Lines told;
    LineComparison({differsA, endA.base()}, {differsB, endB.base()}).Tell(told);
    return told;
}

std::vector<std::string> Differences(const BlockContent& first, const BlockContent& second,
                                     const BlockNames& names, const CodeComment& comment) {
    Lines told;
    for (const int number : Numbers({&first, &second})) {
        const TicketRecord* a = first.Find(number);
        const TicketRecord* b = second.Find(number);
        if (a == nullptr || b == nullptr) {
            told.push_back(Ticket(number) + " is only in " +
                           (a == nullptr ? names.second : names.first));
        } else if (*a != *b) {
            told.push_back(Ticket(number) + " differs:");
            const Lines lines = LineDifferences(*a, *b, comment);
            told.insert(told.end(), lines.begin(), lines.end());
        }
    }
    for (std::size_t key = 0; key < KeyCount; ++key) {
        if (first.keys[key] != second.keys[key]) {
            told.push_back(KeyPhrase(key) + " prints " + Printed(first.keys[key]) + " in " +
                           names.first + ", " + Printed(second.keys[key]) + " in " + names.second);
        }
    }
    if (first.endMarker != second.endMarker || first.fill != second.fill) {
        told.emplace_back("what follows the tickets in the memory differs");
    }
    return told;
}

MergedBlock Merge(const BlockContent& base, const BlockContent& ours, const BlockContent& theirs) {
    return Merger(base, ours, theirs).Run();
}

}  // namespace varno
