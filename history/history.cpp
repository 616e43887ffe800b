#include "history/history.h"

#include <algorithm>
#include <set>
#include <utility>

#include "platform/files.h"
#include "platform/user_folder.h"

namespace varno {
namespace {

constexpr int MostAttempts = 100;  // to be the first at a millisecond

bool IsOfSame(const Copy& one, const Copy& other) {
    return one.kind == other.kind && one.name == other.name;
}

// Whether a copy of one cause makes one of the other needless.
bool SpeaksFor(Cause kept, Cause wanted) {
    return wanted != Cause::Unsaved || kept == Cause::Unsaved;
}

}  // namespace

std::string HistoryFolder() {
    const std::string state = UserStateFolder();
    return state.empty() ? "" : state + "/history";
}

struct History::Kept {
    Copy copy;
    std::string fileName;
    std::uintmax_t bytes = 0;
};

// Newest first; of the same time, in the order of their names.
std::vector<History::Kept> History::Files() const {
    std::vector<Kept> files;
    for (FileEntry& file : FilesIn(folder_)) {
        if (std::optional<Copy> copy = CopyOfName(file.name)) {
            files.push_back({std::move(*copy), std::move(file.name), file.bytes});
        }
    }
    std::sort(files.begin(), files.end(),
              [](const Kept& a, const Kept& b) { return a.fileName > b.fileName; });
    return files;
}

std::vector<Copy> History::Copies() const {
    std::vector<Copy> copies;
    for (Kept& file : Files()) {
        copies.push_back(std::move(file.copy));
    }
    return copies;
}

Error History::Read(const Copy& copy, std::string& content) const {
    return ReadFile(PathOf(FileNameOf(copy)), content);
}

bool History::Holds(const Kept& kept, std::string_view content) const {
    std::string bytes;
    return kept.bytes == content.size() && !ReadFile(PathOf(kept.fileName), bytes) &&
           bytes == content;
}

Error History::Keep(Copy copy, std::string_view content, Copy* kept) const {
    if (folder_.empty()) {
        return "There is no home folder to keep copies in.";
    }
    if (Error error = MakeFolder(folder_)) {
        return error;
    }
    copy = CopyOfName(FileNameOf(copy)).value_or(copy);  // with the name as it can be kept
    const std::vector<Kept> files = Files();
    const auto newest = std::find_if(files.begin(), files.end(), [&copy](const Kept& file) {
        return IsOfSame(file.copy, copy);
    });
    const bool isKept = newest != files.end() && SpeaksFor(newest->copy.cause, copy.cause) &&
                        Holds(*newest, content);
    Error error;
    if (isKept) {
        copy = newest->copy;
    } else {
        error = Write(copy, content);
        Prune(copy.time);
    }
    if (!error && kept != nullptr) {
        *kept = copy;
    }
    return error;
}

// At its time, or so much later as others are in its place.
Error History::Write(Copy& copy, std::string_view content) const {
    Error error;
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        while (FileExists(PathOf(FileNameOf(copy)))) {
            copy.time += std::chrono::milliseconds(1);
        }
        error = WriteNewFile(PathOf(FileNameOf(copy)), content);
        if (!error || !FileExists(PathOf(FileNameOf(copy)))) {
            break;
        }
    }
    return error;
}

// The new one first: whatever happens between, the content is there.
Error History::Relabel(const Copy& copy, Cause cause) const {
    if (!FileExists(PathOf(FileNameOf(copy)))) {
        return std::nullopt;
    }
    std::string content;
    if (Error error = Read(copy, content)) {
        return error;
    }
    Copy relabelled = copy;
    relabelled.cause = cause;
    if (Error error = Write(relabelled, content)) {
        return error;
    }
    return RemoveFile(PathOf(FileNameOf(copy)));
}

// A copy that cannot be removed stays; the next time it is tried again.
void History::Prune(CopyTime now) const {
    std::uintmax_t bytes = 0;
    std::set<std::pair<CopyKind, std::string>> seen;
    for (const Kept& kept : Files()) {
        const bool isNewest = seen.emplace(kept.copy.kind, kept.copy.name).second;
        const bool isTooMuch = bytes + kept.bytes > limits_.bytes;
        if (!isNewest && (isTooMuch || now - kept.copy.time > limits_.age)) {
            (void)RemoveFile(PathOf(kept.fileName));
        } else {
            bytes += kept.bytes;
        }
    }
}

}  // namespace varno
