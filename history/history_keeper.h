// Keeps copies while the window goes on: none waits for the disk.
#pragma once

#include <condition_variable>
#include <deque>
#include <mutex>
#include <string>
#include <thread>

#include "history/history.h"

namespace varno {

class HistoryKeeper {
  public:
    explicit HistoryKeeper(const std::string& folder);
    // Keeps what waits before it goes.
    ~HistoryKeeper();
    HistoryKeeper(const HistoryKeeper&) = delete;
    HistoryKeeper& operator=(const HistoryKeeper&) = delete;

    // Gives the copy the present time, or a later one than the copy before it.
    void Keep(Copy copy, std::string content);

    // Waits until all is kept that was given so far, then says what was wrong with the last one
    // that could not be kept; nothing after a copy that could.
    Error Settle();

  private:
    void Work();

    struct Waiting {
        Copy copy;
        std::string content;
    };

    History history_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Waiting> waiting_;  // the one in work included
    Error trouble_;
    CopyTime last_{};
    bool ends_ = false;
    std::thread worker_;
};

}  // namespace varno
