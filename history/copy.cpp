#include "history/copy.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "codec/word.h"

namespace varno {
namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::milliseconds;

constexpr std::size_t LongestName = 120;  // bytes; most disks take 255 for the whole file name
constexpr std::string_view NotInFileNames = "/\\:*?\"<>|%";
constexpr std::size_t TimeLength = 19;  // 20261123T073849123Z

struct CauseWords {
    Cause cause;
    std::string_view word;  // in file names
    std::string_view text;  // for the operator
};

constexpr std::array<CauseWords, 12> Causes = {{
    {Cause::Unsaved, "unsaved", "Not saved"},
    {Cause::Working, "working", "While it was worked on"},
    {Cause::Delete, "delete", "Before a ticket was deleted"},
    {Cause::Put, "put", "Before a ticket was put over another"},
    {Cause::Edit, "edit", "Before a ticket was taken from the block"},
    {Cause::Open, "open", "Before another was opened"},
    {Cause::Close, "close", "Closed without saving"},
    {Cause::Save, "save", "Before a file was replaced"},
    {Cause::Upload, "upload", "Before an upload"},
    {Cause::Uploaded, "uploaded", "After an upload"},
    {Cause::Download, "download", "Before a download"},
    {Cause::Downloaded, "downloaded", "After a download"},
}};

const CauseWords& WordsOfCause(Cause cause) {
    return *std::find_if(Causes.begin(), Causes.end(),
                         [cause](const CauseWords& words) { return words.cause == cause; });
}

std::string Escaped(std::string_view name) {
    std::string escaped;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte != 127 && NotInFileNames.find(c) == std::string_view::npos) {
            escaped += c;
        } else {
            escaped += "%" + WordHex(byte).substr(2);
        }
    }
    return escaped;
}

// Cut to what a file name has room for, but no character cut in two.
std::string InFileName(std::string_view name) {
    const auto isCharacterStart = [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    };
    const std::string_view whole = name;
    name = name.substr(0, LongestName);
    while (Escaped(name).size() > LongestName ||
           (name.size() < whole.size() && !isCharacterStart(whole[name.size()]))) {
        name.remove_suffix(1);
    }
    return Escaped(name);
}

std::string Unescaped(std::string_view escaped) {
    std::string name;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        const bool isCode = escaped[i] == '%' && i + 2 < escaped.size() &&
                            HexDigit(escaped[i + 1]) >= 0 && HexDigit(escaped[i + 2]) >= 0;
        name += isCode ? static_cast<char>(HexAt(escaped, i + 1, 2)) : escaped[i];
        i += isCode ? 2 : 0;
    }
    return name;
}

std::string FileTime(CopyTime time) {
    const auto day = floor<days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<char, 64> text{};
    std::snprintf(
        text.data(), text.size(), "%04d%02u%02uT%02d%02d%02d%03dZ", static_cast<int>(date.year()),
        static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
        static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
        static_cast<int>(clock.seconds().count()), static_cast<int>(clock.subseconds().count()));
    return text.data();
}

std::optional<CopyTime> TimeOf(const std::string& text) {
    int year = 0;
    unsigned month = 0;
    unsigned day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int fraction = 0;
    if (std::sscanf(text.c_str(), "%4d%2u%2uT%2d%2d%2d%3dZ", &year, &month, &day, &hour, &minute,
                    &second, &fraction) != 7) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                           std::chrono::day(day)};
    if (!date.ok()) {
        return std::nullopt;
    }
    return std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second) + milliseconds(fraction);
}

std::string_view Extension(CopyKind kind) {
    return kind == CopyKind::Block ? ".VRB" : ".VRT";
}

}  // namespace

std::string FileNameOf(const Copy& copy) {
    const std::string port = copy.port.empty() ? "" : "-" + InFileName(copy.port);
    return FileTime(copy.time) + "_" + std::string(WordsOfCause(copy.cause).word) + port + "_" +
           InFileName(copy.name) + std::string(Extension(copy.kind));
}

std::optional<Copy> CopyOfName(std::string_view fileName) {
    const std::optional<CopyTime> time = TimeOf(std::string(fileName.substr(0, TimeLength)));
    const std::size_t afterCause = fileName.find('_', TimeLength + 1);
    const std::size_t afterName = fileName.rfind('.');
    if (!time || afterCause == std::string_view::npos || afterName == std::string_view::npos ||
        afterName < afterCause) {
        return std::nullopt;
    }
    const std::string_view why = fileName.substr(TimeLength + 1, afterCause - TimeLength - 1);
    const std::string_view word = why.substr(0, why.find('-'));
    const auto words = std::find_if(Causes.begin(), Causes.end(),
                                    [word](const CauseWords& cause) { return cause.word == word; });
    if (words == Causes.end()) {
        return std::nullopt;
    }
    const Copy copy{.time = *time,
                    .cause = words->cause,
                    .port = word.size() < why.size() ? Unescaped(why.substr(word.size() + 1)) : "",
                    .name = Unescaped(fileName.substr(afterCause + 1, afterName - afterCause - 1)),
                    .kind = fileName.substr(afterName) == Extension(CopyKind::Block)
                                ? CopyKind::Block
                                : CopyKind::Ticket};
    // A file of somebody else's may come near it, with minute 61 or another ending.
    return FileNameOf(copy) == fileName ? std::optional(copy) : std::nullopt;
}

std::string_view CauseText(Cause cause) {
    return WordsOfCause(cause).text;
}

}  // namespace varno
