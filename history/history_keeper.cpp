#include "history/history_keeper.h"

#include <utility>

namespace varno {

HistoryKeeper::HistoryKeeper(const std::string& folder)
    : history_(folder), worker_([this] { Work(); }) {}

HistoryKeeper::~HistoryKeeper() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    worker_.join();
}

void HistoryKeeper::Keep(Copy copy, std::string content) {
    using std::chrono::milliseconds;
    const auto now = std::chrono::floor<milliseconds>(std::chrono::system_clock::now());
    {
        const std::lock_guard lock(mutex_);
        // Many at once keep their order; a clock that was put back is believed.
        const bool isAtOnce = now <= last_ && last_ - now < std::chrono::seconds(1);
        copy.time = isAtOnce ? last_ + milliseconds(1) : now;
        last_ = copy.time;
        waiting_.push_back({std::move(copy), std::move(content)});
    }
    changed_.notify_all();
}

Error HistoryKeeper::Settle() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return waiting_.empty(); });
    return trouble_;
}

void HistoryKeeper::Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ends_ || !waiting_.empty(); });
        if (waiting_.empty()) {
            return;
        }
        const Waiting& next = waiting_.front();  // stays where it is while others are added
        lock.unlock();
        Error trouble = history_.Keep(next.copy, next.content);
        lock.lock();
        trouble_ = std::move(trouble);
        waiting_.pop_front();
        changed_.notify_all();
    }
}

}  // namespace varno
