#include "history/history.h"

#include <algorithm>
#include <functional>
#include <set>
#include <utility>

#include "codec/text_limits.h"
#include "platform/files.h"
#include "platform/user_folder.h"

namespace varno {
namespace {

constexpr int MostAttempts = 100;  // to be the first at a millisecond

// No file that somebody gave the name of a copy, however long, takes the place of copies.
constexpr std::size_t MostCopyBytes = MostTicketFileBytes;

// Clocks go wrong. Copies of later days than today do not speak for what is kept today, and go
// before all others; nobody knows how old a copy is that seems to be older than this program.
constexpr std::chrono::days Tomorrow{1};
constexpr CopyTime FirstTime = std::chrono::sys_days(std::chrono::year(2020) / 1 / 1);

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

Error History::Obstacle() const {
    return folder_.empty() ? "There is no home folder to keep copies in." : FolderTrouble(folder_);
}

std::vector<Copy> History::Copies() const {
    std::vector<std::string> names = FilesIn(folder_);
    std::sort(names.begin(), names.end(), std::greater());
    std::vector<Copy> copies;
    for (const std::string& name : names) {
        if (std::optional<Copy> copy = CopyOfName(name)) {
            copies.push_back(std::move(*copy));
        }
    }
    return copies;
}

Error History::Read(const Copy& copy, std::string& content) const {
    std::string bytes;
    if (Error error = ReadFile(PathOf(copy), bytes, MostCopyBytes + 1)) {
        return error;
    }
    if (bytes.size() > MostCopyBytes) {
        return PathOf(copy) + ": the file is too long to be a copy";
    }
    content = std::move(bytes);
    return std::nullopt;
}

bool History::Holds(const Copy& copy, std::string_view content) const {
    std::string bytes;
    return FileBytes(PathOf(copy)) == content.size() && !Read(copy, bytes) && bytes == content;
}

// The newest of the same name; of unsaved work the one that this program took, whatever others keep
// under that name.
std::vector<Copy>::const_iterator History::Former(const std::vector<Copy>& copies,
                                                  const Copy& copy) const {
    const auto newest = [&](auto&& isMeant) {
        return std::find_if(copies.begin(), copies.end(), [&](const Copy& other) {
            return IsOfSame(other, copy) && other.time <= copy.time + Tomorrow && isMeant(other);
        });
    };
    const auto own = copy.cause == Cause::Unsaved
                         ? newest([this](const Copy& other) { return IsTaken(other); })
                         : copies.end();
    return own != copies.end() ? own : newest([](const Copy&) { return true; });
}

Error History::Keep(Copy copy, std::string_view content, Copy* kept) {
    if (folder_.empty()) {
        return Obstacle();
    }
    if (Error error = MakeFolder(folder_)) {
        return error;
    }
    copy = CopyOfName(FileNameOf(copy)).value_or(copy);  // with the name as it can be kept
    std::vector<Copy> copies = Copies();
    const auto newest = Former(copies, copy);
    const bool isKept = newest != copies.end() && SpeaksFor(newest->cause, copy.cause) &&
                        Holds(*newest, content) && (copy.cause != Cause::Unsaved || Take(*newest));
    Error error;
    if (isKept) {
        copy = *newest;
    } else {
        error = Write(copy, content);
        if (!error) {
            copies.insert(copies.begin(), copy);
            unseen_ += content.size();
        }
        if (unseen_ > Slack()) {
            Prune(std::move(copies), copy.time);
        }
    }
    if (!error && kept != nullptr) {
        *kept = copy;
    }
    return error;
}

// At its time, or so much later as others are in its place.
Error History::Write(Copy& copy, std::string_view content) {
    Error error;
    FileClaim claim;
    for (int attempt = 0; attempt < MostAttempts; ++attempt) {
        while (FileExists(PathOf(copy))) {
            copy.time += std::chrono::milliseconds(1);
        }
        error =
            WriteNewFile(PathOf(copy), content, copy.cause == Cause::Unsaved ? &claim : nullptr);
        if (!error || !FileExists(PathOf(copy))) {
            break;
        }
    }
    if (!error && claim) {
        taken_.insert_or_assign(FileNameOf(copy), std::move(claim));
    }
    return error;
}

bool History::Take(const Copy& copy) {
    if (!IsTaken(copy)) {
        if (FileClaim claim = ClaimFile(PathOf(copy))) {
            taken_.emplace(FileNameOf(copy), std::move(claim));
        }
    }
    return IsTaken(copy);
}

std::optional<bool> History::IsInWork(const Copy& copy) const {
    return copy.cause == Cause::Unsaved ? IsFileClaimed(PathOf(copy)) : std::nullopt;
}

Error History::Relabel(const Copy& copy, Cause cause) {
    Error error = WriteAs(copy, cause);
    taken_.erase(FileNameOf(copy));
    return error;
}

// The new one first: whatever happens between, the content is there.
Error History::WriteAs(const Copy& copy, Cause cause) {
    if (!FileExists(PathOf(copy))) {
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
    return RemoveFile(PathOf(copy));
}

// Of the copies, newest first, the last go until the limits are kept, with room for what comes
// until the next time. A copy that cannot be removed stays until then.
void History::Prune(std::vector<Copy> copies, CopyTime now) {
    std::stable_partition(copies.begin(), copies.end(),
                          [now](const Copy& copy) { return copy.time <= now + Tomorrow; });
    std::uintmax_t bytes = 0;
    std::size_t rank = 0;
    std::set<std::pair<CopyKind, std::string_view>> seen;
    for (const Copy& copy : copies) {
        const std::uintmax_t size = FileBytes(PathOf(copy));
        if (size > MostCopyBytes) {
            continue;
        }
        const bool isNewest = seen.emplace(copy.kind, copy.name).second;
        const bool isTooMuch = bytes + size > limits_.bytes - Slack();
        const bool isTooOld =
            ++rank > limits_.newest && copy.time >= FirstTime && now - copy.time > limits_.age;
        if (!isNewest && (isTooMuch || isTooOld) && !IsInWork(copy).value_or(false)) {
            (void)RemoveFile(PathOf(copy));
        } else {
            bytes += size;
        }
    }
    unseen_ = 0;
}

}  // namespace varno
