// The history: dated copies of what was in the window and in files that were replaced, so that
// nothing is ever gone. Copies are whole or not there, and readable for their user alone.
#pragma once

#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "history/copy.h"
#include "platform/error.h"
#include "platform/files.h"

namespace varno {

// What the history keeps. The newest copy of each block and ticket stays in any case.
struct HistoryLimits {
    std::chrono::days age{365};
    std::uintmax_t bytes = 200'000'000;  // of all copies
    std::size_t newest = 1000;           // that no age counts of: a clock may be wrong by years
};

// The folder of the history; empty for a user without a home.
std::string HistoryFolder();

// Several programs may use the same folder at once. Files in it that are no copies are left alone.
class History {
  public:
    explicit History(std::string folder, HistoryLimits limits = {})
        : folder_(std::move(folder)), limits_(limits) {}

    std::vector<Copy> Copies() const;  // newest first

    // Why the copies cannot be seen; nothing where there are none yet.
    Error Obstacle() const;

    [[nodiscard]] Error Read(const Copy& copy, std::string& content) const;

    // Makes a copy, unless the newest one of that name holds the same. Unsaved work is kept beside
    // one that holds the same for another cause, so that it is known as such, or for a program that
    // still runs; its copy is taken. Then the oldest copies go until the limits are kept. `kept`
    // becomes the copy that holds the content.
    [[nodiscard]] Error Keep(Copy copy, std::string_view content, Copy* kept = nullptr);

    // Works on unsaved work from now on, until it is relabelled; false if it is gone, or in work
    // elsewhere.
    bool Take(const Copy& copy);

    // Whether a running program, this one included, has this unsaved work; nothing where nobody can
    // tell, and for copies of other causes.
    std::optional<bool> IsInWork(const Copy& copy) const;

    // Gives a copy another cause, if it is still there, and lets go of it.
    [[nodiscard]] Error Relabel(const Copy& copy, Cause cause);

  private:
    bool Holds(const Copy& copy, std::string_view content) const;
    Error Write(Copy& copy, std::string_view content);
    Error WriteAs(const Copy& copy, Cause cause);
    std::vector<Copy>::const_iterator Former(const std::vector<Copy>& copies,
                                             const Copy& copy) const;
    bool IsTaken(const Copy& copy) const { return taken_.contains(FileNameOf(copy)); }
    void Prune(std::vector<Copy> copies, CopyTime now);
    // What may come before all sizes are looked at again, which costs more than a copy.
    std::uintmax_t Slack() const { return limits_.bytes / 100; }
    std::string PathOf(const Copy& copy) const { return folder_ + "/" + FileNameOf(copy); }

    std::string folder_;
    HistoryLimits limits_;
    std::map<std::string, FileClaim> taken_;  // by the names of the files
    std::uintmax_t unseen_ = std::numeric_limits<std::uintmax_t>::max() / 2;  // bytes kept since
};

}  // namespace varno
