#include "history/copy.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "codec/utf8.h"
#include "codec/word.h"

namespace varno {
namespace {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::milliseconds;

constexpr std::size_t LongestName = 120;  // bytes; most disks take 255 for the whole file name
constexpr std::size_t LongestPort = 60;
constexpr std::string_view NotInNames = "/\\:*?\"<>|%";
constexpr std::string_view NotInPorts = "/\\:*?\"<>|%_";  // behind a port stands "_"

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

std::string Escaped(std::string_view name, std::string_view forbidden) {
    std::string escaped;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte >= ' ' && byte != 127 && forbidden.find(c) == std::string_view::npos) {
            escaped += c;
        } else {
            escaped += "%" + WordHex(byte).substr(2);
        }
    }
    return escaped;
}

// Cut to what a file name has room for, but no character cut in two.
std::string InFileName(std::string_view name, std::size_t longest, std::string_view forbidden) {
    const std::string_view whole = name;
    name = name.substr(0, longest);
    while (!name.empty() &&
           (Escaped(name, forbidden).size() > longest ||
            (name.size() < whole.size() && ContinuesCharacter(whole[name.size()])))) {
        name.remove_suffix(1);
    }
    return Escaped(name, forbidden);
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

std::string Digits(int number, std::size_t count) {
    const std::string digits = std::to_string(number);
    return std::string(count - std::min(count, digits.size()), '0') + digits;
}

std::string FileTime(CopyTime time) {
    const auto day = floor<days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    const auto count = [](auto value) { return static_cast<int>(value.count()); };
    const auto part = [](auto value) { return static_cast<int>(static_cast<unsigned>(value)); };
    return Digits(static_cast<int>(date.year()), 4) + Digits(part(date.month()), 2) +
           Digits(part(date.day()), 2) + "T" + Digits(count(clock.hours()), 2) +
           Digits(count(clock.minutes()), 2) + Digits(count(clock.seconds()), 2) +
           Digits(count(clock.subseconds()), 3) + "Z";
}

// 0 for what is no number.
unsigned NumberAt(std::string_view text, std::size_t position, std::size_t length) {
    unsigned number = 0;
    if (position + length <= text.size()) {
        std::from_chars(text.data() + position, text.data() + position + length, number);
    }
    return number;
}

// Of a text that is no such time, nothing or some time.
std::optional<CopyTime> TimeOf(std::string_view text) {
    const std::chrono::year_month_day date{
        std::chrono::year(static_cast<int>(NumberAt(text, 0, 4))),
        std::chrono::month(NumberAt(text, 4, 2)), std::chrono::day(NumberAt(text, 6, 2))};
    if (!date.ok()) {
        return std::nullopt;
    }
    return std::chrono::sys_days(date) + std::chrono::hours(NumberAt(text, 9, 2)) +
           std::chrono::minutes(NumberAt(text, 11, 2)) +
           std::chrono::seconds(NumberAt(text, 13, 2)) + milliseconds(NumberAt(text, 15, 3));
}

std::string_view Extension(CopyKind kind) {
    return kind == CopyKind::Block ? ".VRB" : ".VRT";
}

}  // namespace

std::string FileNameOf(const Copy& copy) {
    const std::string port =
        copy.port.empty() ? "" : "-" + InFileName(copy.port, LongestPort, NotInPorts);
    return FileTime(copy.time) + "_" + std::string(WordsOfCause(copy.cause).word) + port + "_" +
           InFileName(copy.name, LongestName, NotInNames) + std::string(Extension(copy.kind));
}

std::optional<Copy> CopyOfName(std::string_view fileName) {
    const std::optional<CopyTime> time = TimeOf(fileName);
    const std::size_t afterCause = fileName.find('_', CopyTimeLength + 1);
    const std::size_t afterName = fileName.rfind('.');
    if (!time || afterCause == std::string_view::npos || afterName == std::string_view::npos ||
        afterName < afterCause) {
        return std::nullopt;
    }
    const std::string_view why =
        fileName.substr(CopyTimeLength + 1, afterCause - CopyTimeLength - 1);
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
