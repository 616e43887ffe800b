// The history: dated copies of what was in the window and in files that were replaced, so that
// nothing is ever gone. Copies are whole or not there, and readable for their user alone.
#pragma once

#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "history/copy.h"
#include "platform/error.h"

namespace varno {

// What the history keeps. The newest copy of each block and ticket stays in any case.
struct HistoryLimits {
    std::chrono::days age{365};
    std::uintmax_t bytes = 200'000'000;  // of all copies
};

// The folder of the history; empty for a user without a home.
std::string HistoryFolder();

// Several programs may use the same folder at once. Files in it that are no copies are left alone.
class History {
  public:
    explicit History(std::string folder, HistoryLimits limits = {})
        : folder_(std::move(folder)), limits_(limits) {}

    std::vector<Copy> Copies() const;  // newest first

    [[nodiscard]] Error Read(const Copy& copy, std::string& content) const;

    // Makes a copy, unless the newest one of that name holds the same. Unsaved work is kept beside
    // one that holds the same for another cause, so that it is known as such. Then the oldest
    // copies go until the limits are kept. `kept` becomes the copy that holds the content.
    [[nodiscard]] Error Keep(Copy copy, std::string_view content, Copy* kept = nullptr);

    // Gives a copy another cause, if it is still there.
    [[nodiscard]] Error Relabel(const Copy& copy, Cause cause) const;

  private:
    bool Holds(const Copy& copy, std::string_view content) const;
    Error Write(Copy& copy, std::string_view content) const;
    void Prune(std::vector<Copy> copies, CopyTime now);
    // What may come before all sizes are looked at again, which costs more than a copy.
    std::uintmax_t Slack() const { return limits_.bytes / 100; }
    std::string PathOf(const Copy& copy) const { return folder_ + "/" + FileNameOf(copy); }

    std::string folder_;
    HistoryLimits limits_;
    std::uintmax_t unseen_ = std::numeric_limits<std::uintmax_t>::max() / 2;  // bytes kept since
};

}  // namespace varno
