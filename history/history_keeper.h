// Keeps copies while the window goes on: none waits for the disk.
#pragma once

#include <condition_variable>
#include <deque>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <thread>

#include "codec/marked_text.h"
#include "history/history.h"

namespace varno {

class HistoryKeeper {
  public:
    explicit HistoryKeeper(const std::string& folder);
    // Keeps what waits before it goes.
    ~HistoryKeeper();
    HistoryKeeper(const HistoryKeeper&) = delete;
    HistoryKeeper& operator=(const HistoryKeeper&) = delete;

    // Gives the copy the present time, or a later one than the copy before it. Of unsaved work the
    // copy before it is work in progress from then on.
    void Keep(Copy copy, std::string content);
    void Keep(Copy copy, MarkedText ticket);

    // The unsaved work of this kind is saved or let go: no copy of it counts as lost work.
    void EndWork(CopyKind kind, Cause cause);

    // An unsaved copy is worked on again: it is this program's now, unless another one has it.
    void Resume(const Copy& copy);

    // Whether something given so far is not kept yet.
    bool IsBusy();

    // What was wrong with the last one that could not be kept; nothing after one that could.
    Error Trouble();

  private:
    using Job = std::function<void()>;
    CopyTime NextTime();
    void Add(Job job);
    void Work();
    // The worker's alone:
    void Tell(Error trouble);
    void KeepNow(const Copy& copy, const std::string& content);
    void EndWorkNow(CopyKind kind, Cause cause);

    History history_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::deque<Job> waiting_;           // the one in work included
    std::map<CopyKind, Copy> unsaved_;  // of each kind the copy that counts; the worker's alone
    Error trouble_;
    CopyTime last_{};
    bool ends_ = false;
    std::thread worker_;
};

}  // namespace varno
