#include "history/copy_rows.h"

#include <algorithm>
#include <utility>

namespace varno {

void CopyRows::ReadCopies(const History& history, CopyTime started) {
    std::map<std::string, CopyFindings> known = std::exchange(known_, {});
    rows_.clear();
    shown_.clear();
    for (Copy& copy : history.Copies()) {
        std::optional<bool> isInWork = history.IsInWork(copy);
        if (!isInWork && copy.cause == Cause::Unsaved && copy.time < started) {
            isInWork = false;
        }
        CopyHeading heading = HeadingOf(copy, isInWork);
        auto learned = known.extract(FileNameOf(copy));
        const CopyFindings* findings =
            learned.empty() ? nullptr : &known_.insert(std::move(learned)).position->second;
        rows_.push_back({std::move(copy), std::move(heading), findings, !isInWork.value_or(true)});
    }
    std::stable_partition(rows_.begin(), rows_.end(), [](const Row& row) { return row.isLost; });
    next_ = 0;
}

bool CopyRows::Filter(const std::string& filter) {
    std::vector<std::size_t> shown;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        if (filter.empty() || Matches(rows_[row], filter)) {
            shown.push_back(row);
        }
    }
    return std::exchange(shown_, shown) != shown;
}

bool CopyRows::Matches(const Row& row, const std::string& filter) {
    std::string all;
    for (const CopyColumn column : {CopyColumn::When, CopyColumn::What, CopyColumn::Kind,
                                    CopyColumn::Name, CopyColumn::Tickets, CopyColumn::Soundness}) {
        all += TextOf(row, column) + ' ';
    }
    return varno::Matches(all, filter);
}

std::optional<std::size_t> CopyRows::Find(const Copy& copy) const {
    for (std::size_t row = 0; row < shown_.size(); ++row) {
        const Copy& other = Shown(row);
        if (other.time == copy.time && other.kind == copy.kind && other.name == copy.name) {
            return row;
        }
    }
    return std::nullopt;
}

std::string CopyRows::Text(std::size_t row, CopyColumn column) const {
    return row < shown_.size() ? TextOf(rows_[shown_[row]], column) : "";
}

std::string CopyRows::TextOf(const Row& row, CopyColumn column) {
    switch (column) {
        case CopyColumn::When:
            return row.heading.when;
        case CopyColumn::What:
            return row.heading.what;
        case CopyColumn::Kind:
            return row.heading.kind;
        case CopyColumn::Name:
            return row.heading.name;
        case CopyColumn::Tickets:
            return row.findings == nullptr ? "" : TicketsText(row.copy.kind, *row.findings);
        case CopyColumn::Soundness:
            return row.findings == nullptr ? "" : SoundnessText(*row.findings);
    }
    return "";
}

bool CopyRows::LearnNext(const History& history) {
    while (next_ < rows_.size() && rows_[next_].findings != nullptr) {
        ++next_;
    }
    if (next_ == rows_.size()) {
        return false;
    }
    Row& row = rows_[next_];
    const auto [known, isNew] = known_.emplace(FileNameOf(row.copy), FindingsOf(history, row.copy));
    row.findings = &known->second;
    return true;
}

}  // namespace varno
