#include "history/history_keeper.h"

#include <utility>

#include "platform/rtf/rtf_writer.h"

namespace varno {

HistoryKeeper::HistoryKeeper(const std::string& folder)
    : history_(folder), worker_([this] { Work(); }) {}

HistoryKeeper::~HistoryKeeper() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_one();
    worker_.join();
}

void HistoryKeeper::Keep(Copy copy, std::string content) {
    copy.time = NextTime();
    Add([this, copy = std::move(copy), content = std::move(content)] { KeepNow(copy, content); });
}

void HistoryKeeper::Keep(Copy copy, MarkedText ticket) {
    copy.time = NextTime();
    Add([this, copy = std::move(copy), ticket = std::move(ticket)] {
        KeepNow(copy, WriteRtf(ticket));
    });
}

CopyTime HistoryKeeper::NextTime() {
    using std::chrono::milliseconds;
    const auto now = std::chrono::floor<milliseconds>(std::chrono::system_clock::now());
    // Many at once keep their order; a clock that was put back is believed.
    const bool isAtOnce = now <= last_ && last_ - now < std::chrono::seconds(1);
    last_ = isAtOnce ? last_ + milliseconds(1) : now;
    return last_;
}

void HistoryKeeper::EndWork(CopyKind kind, Cause cause) {
    Add([this, kind, cause] { EndWorkNow(kind, cause); });
}

void HistoryKeeper::Resume(const Copy& copy) {
    Add([this, copy] {
        if (history_.Take(copy)) {
            unsaved_.insert_or_assign(copy.kind, copy);
        }
    });
}

bool HistoryKeeper::IsBusy() {
    const std::lock_guard lock(mutex_);
    return !waiting_.empty();
}

Error HistoryKeeper::Trouble() {
    const std::lock_guard lock(mutex_);
    return trouble_;
}

void HistoryKeeper::Tell(Error trouble) {
    const std::lock_guard lock(mutex_);
    trouble_ = std::move(trouble);
}

void HistoryKeeper::KeepNow(const Copy& copy, const std::string& content) {
    Copy kept;
    const Error error = history_.Keep(copy, content, &kept);
    Tell(error);
    if (error || copy.cause != Cause::Unsaved) {
        return;
    }
    const auto former = unsaved_.find(copy.kind);
    if (former != unsaved_.end() && former->second != kept) {
        EndWorkNow(copy.kind, Cause::Working);
    }
    unsaved_.insert_or_assign(copy.kind, kept);
}

void HistoryKeeper::EndWorkNow(CopyKind kind, Cause cause) {
    const auto unsaved = unsaved_.find(kind);
    if (unsaved == unsaved_.end()) {
        return;
    }
    if (const Error error = history_.Relabel(unsaved->second, cause)) {
        Tell(error);
    }
    unsaved_.erase(unsaved);
}

void HistoryKeeper::Add(Job job) {
    {
        const std::lock_guard lock(mutex_);
        waiting_.push_back(std::move(job));
    }
    changed_.notify_one();
}

void HistoryKeeper::Work() {
    std::unique_lock lock(mutex_);
    for (;;) {
        changed_.wait(lock, [this] { return ends_ || !waiting_.empty(); });
        if (waiting_.empty()) {
            return;
        }
        const Job& next = waiting_.front();  // stays where it is while others are added
        lock.unlock();
        next();
        lock.lock();
        waiting_.pop_front();
    }
}

}  // namespace varno
