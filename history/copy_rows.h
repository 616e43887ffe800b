// The copies as the rows of a table: which of them are shown, and what is written in their columns.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "history/description.h"
#include "history/history.h"

namespace varno {

// The columns, from the left.
enum class CopyColumn { When, What, Kind, Name, Tickets, Soundness };

class CopyRows {
  public:
    // Lost work comes first: unsaved copies that no running program has in work or, where nobody
    // can tell, from before `started`. The rest is newest first. What was learned of a copy stays
    // known.
    void ReadCopies(const History& history, CopyTime started);

    // Shows the rows that hold every word of the filter, in whatever column; true if they are
    // others than before. Columns that are not known yet hold nothing.
    bool Filter(const std::string& filter);

    std::size_t Count() const { return rows_.size(); }
    std::size_t ShownCount() const { return shown_.size(); }
    const Copy& Shown(std::size_t row) const { return rows_[shown_[row]].copy; }
    // The row of a copy, though it may have got another cause meanwhile.
    std::optional<std::size_t> Find(const Copy& copy) const;

    std::string Text(std::size_t row, CopyColumn column) const;

    // Reads the next copy that is not known yet; false if all are.
    bool LearnNext(const History& history);

  private:
    struct Row {
        Copy copy;
        CopyHeading heading;
        const CopyFindings* findings;  // null until they are known
        bool isLost;
    };
    static std::string TextOf(const Row& row, CopyColumn column);
    static bool Matches(const Row& row, const std::string& filter);

    std::vector<Row> rows_;
    std::vector<std::size_t> shown_;
    std::size_t next_ = 0;                       // of `rows_`: those before it are known
    std::map<std::string, CopyFindings> known_;  // by the names of the files
};

}  // namespace varno
