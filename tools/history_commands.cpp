#include "tools/history_commands.h"

#include <algorithm>
#include <array>
#include <filesystem>
#include <iostream>
#include <limits>

#include "block/block_file.h"
#include "codec/utf8.h"
#include "history/description.h"
#include "platform/files.h"
#include "platform/rtf/rtf_reader.h"
#include "tools/json.h"
#include "tools/opened_block.h"
#include "tools/refusal.h"
#include "tools/text_commands.h"

namespace varno {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Latest = "latest";

// Nothing that the operator chose to keep is thrown away.
constexpr HistoryLimits NoLimits{.age = std::chrono::days(365'000),
                                 .bytes = std::numeric_limits<std::uintmax_t>::max()};

// Newest first. A folder that cannot be read is refused; one that is not there yet holds nothing.
std::vector<Copy> CopiesFor(const Request& request) {
    const History history = HistoryFor(request);
    Require(history.Obstacle());
    return history.Copies();
}

// Names were not typed here, as those of files are in other commands: none of them makes a terminal
// do anything, and each is told in a way that can be typed.
std::string Told(std::string_view name) {
    std::u16string told = FromUtf8(name);
    const auto isControl = [](char16_t c) { return c < u' ' || (c >= u'\x7F' && c < u'\xA0'); };
    std::replace_if(told.begin(), told.end(), isControl, u'\uFFFD');
    return ToUtf8(told);
}

std::string NameOf(const Copy& copy) {
    return Told(FileNameOf(copy));
}

std::string KindAndName(const CopyHeading& heading) {
    return heading.kind + (heading.name.empty() ? "" : " " + heading.name);
}

CopyHeading HeadingOf(const History& history, const Copy& copy) {
    return HeadingOf(copy, history.IsInWork(copy));
}

std::string TextOf(const History& history, const Copy& copy) {
    const CopyHeading heading = HeadingOf(history, copy);
    return FileNameOf(copy) + " " + heading.when + " " + KindAndName(heading) + " " + heading.what;
}

// Copies in which every word of the request stands.
std::vector<Copy> WantedCopies(const Request& request) {
    std::vector<Copy> copies = CopiesFor(request);
    const History history = HistoryFor(request);
    for (const std::string& words : request.operands) {
        std::erase_if(copies,
                      [&](const Copy& copy) { return !Matches(TextOf(history, copy), words); });
    }
    return copies;
}

// The beginning of its file name that means no other copy, its time as a rule.
std::string HandleOf(const std::vector<Copy>& copies, std::size_t index) {
    const auto sameTime = [&](std::size_t other) {
        return other < copies.size() && copies[other].time == copies[index].time;
    };
    const std::string name = NameOf(copies[index]);
    return sameTime(index - 1) || sameTime(index + 1) ? name : name.substr(0, CopyTimeLength);
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(std::max(text.size(), width + text.size() - FromUtf8(text).size()), ' ');
    return text;
}

std::string Verdict(CopyKind kind, const CopyFindings& findings) {
    if (!findings.faults.empty()) {
        return "damaged  " + SoundnessText(findings);
    }
    const std::string tickets = TicketsText(kind, findings);
    return "sound" + (tickets.empty() ? "" : "    tickets: " + tickets);
}

// What takes the content stands at the end, so that a long list begins at once.
void TellPeople(const History& history, const std::vector<Copy>& copies) {
    constexpr std::size_t columns = 4;
    std::vector<std::array<std::string, columns>> rows;
    std::array<std::size_t, columns> widths{};
    for (std::size_t i = 0; i < copies.size(); ++i) {
        const CopyHeading heading = HeadingOf(history, copies[i]);
        rows.push_back(
            {HandleOf(copies, i), heading.when, Told(KindAndName(heading)), Told(heading.what)});
        for (std::size_t column = 0; column < columns; ++column) {
            widths[column] = std::max(widths[column], FromUtf8(rows[i][column]).size());
        }
    }
    for (std::size_t i = 0; i < copies.size(); ++i) {
        for (std::size_t column = 0; column < columns; ++column) {
            std::cout << Padded(rows[i][column], widths[column]) << "  ";
        }
        std::cout << Told(Verdict(copies[i].kind, FindingsOf(history, copies[i]))) << '\n';
    }
}

JsonObject ObjectOf(const Copy& copy, const CopyHeading& heading, const CopyFindings& findings) {
    return JsonObject()
        .Add("copy", NameOf(copy))
        .Add("when", heading.when)
        .Add("what", heading.what)
        .Add("kind", heading.kind)
        .Add("name", heading.name)
        .Add("sound", findings.faults.empty())
        .Add("faults", findings.faults)
        .Add("tickets", findings.tickets);
}

void TellScripts(const History& history, const std::vector<Copy>& copies) {
    std::vector<JsonObject> objects(copies.size());
    std::transform(copies.begin(), copies.end(), objects.begin(), [&](const Copy& copy) {
        return ObjectOf(copy, HeadingOf(history, copy), FindingsOf(history, copy));
    });
    std::cout << JsonObject().Add("copies", objects).Text() << '\n';
}

// The copy whose file name, as it is or as it is told, begins with the text; or the newest of all.
Copy CopyMeantBy(const Request& request, const std::string& text) {
    std::vector<Copy> copies = CopiesFor(request);
    if (text == Latest) {
        copies.resize(std::min<std::size_t>(copies.size(), 1));
    } else {
        std::erase_if(copies, [&](const Copy& copy) {
            return !FileNameOf(copy).starts_with(text) && !NameOf(copy).starts_with(text);
        });
        const auto whole = std::find_if(copies.begin(), copies.end(),
                                        [&](const Copy& copy) { return FileNameOf(copy) == text; });
        if (whole != copies.end()) {
            return *whole;
        }
    }
    if (copies.empty()) {
        throw Refusal(Ending::CouldNot, "there is no copy \"" + text +
                                            "\"; varno-tickets history list tells which there are");
    }
    if (copies.size() > 1) {
        throw Refusal(Ending::CouldNot, "\"" + text + "\" means " + std::to_string(copies.size()) +
                                            " copies, such as " + NameOf(copies[0]) + " and " +
                                            NameOf(copies[1]));
    }
    return copies.front();
}

struct OpenedCopy {
    Copy copy;
    CopyHeading heading;
    std::string content;
    CopyFindings findings;
};

OpenedCopy Opened(const Request& request) {
    const History history = HistoryFor(request);
    OpenedCopy opened{CopyMeantBy(request, request.operands[0]), {}, {}, {}};
    opened.heading = HeadingOf(history, opened.copy);
    Require(history.Read(opened.copy, opened.content));
    opened.findings = FindingsIn(opened.copy.kind, opened.content);
    return opened;
}

void TellPeople(const OpenedCopy& opened) {
    const CopyHeading& heading = opened.heading;
    std::cout << Told(KindAndName(heading)) << "\n"
              << heading.when << "\n"
              << Told(heading.what) << "\n";
    if (opened.copy.kind == CopyKind::Block) {
        std::cout << "tickets: " << TicketsText(opened.copy.kind, opened.findings) << "\n";
    }
    for (const std::string& fault : opened.findings.faults) {
        std::cout << fault << "\n";
    }
    std::cout << (opened.findings.faults.empty() ? "sound\n" : "");
}

void TellTicket(const std::string& content) {
    MarkedText ticket;
    Require(LoadMarkedText(content, ticket), Ending::FaultFound);
    std::string text = ToUtf8(ticket.Text());
    std::erase(text, '\r');
    std::cout << "\n" << text << (text.empty() || text.back() == '\n' ? "" : "\n");
}

void Compare(const Request& request, const OpenedCopy& opened) {
    const std::string& path = request.operands[1];
    const BlockNames names{request.operands[0], path};
    if (opened.copy.kind == CopyKind::Block) {
        TellDifferences(request, ContentOf(ImageIn(opened.content)), BlockIn(path), names);
    } else {
        TellDifferences(request, TicketIn(names.first, opened.content), TicketIn(path), names);
    }
}

// Keeps what the file holds that is about to be replaced, or refuses. It is what replaces it, as
// for the window: a damaged block need not look like one.
void KeepReplaced(const Request& request, const std::string& path, CopyKind kind) {
    const std::string content = WholeText(path);
    const Copy copy = {
        .time = std::chrono::floor<std::chrono::milliseconds>(std::chrono::system_clock::now()),
        .cause = Cause::Save,
        .name = fs::path(path).stem().string(),
        .kind = kind};
    if (const Error error = HistoryFor(request).Keep(copy, content)) {
        throw Refusal(Ending::CouldNot,
                      path + " is not replaced: what it holds cannot be kept. " + *error);
    }
}

}  // namespace

History HistoryFor(const Request& request) {
    return request.backupFolder.empty() ? History(HistoryFolder())
                                        : History(request.backupFolder, NoLimits);
}

void HistoryList(const Request& request) {
    const std::vector<Copy> copies = WantedCopies(request);
    const History history = HistoryFor(request);
    request.json ? TellScripts(history, copies) : TellPeople(history, copies);
}

void HistoryShow(const Request& request) {
    const OpenedCopy opened = Opened(request);
    const bool isSound = opened.findings.faults.empty();
    if (request.operands.size() == 1 && request.json) {
        std::cout << ObjectOf(opened.copy, opened.heading, opened.findings).Text() << '\n';
    } else if (request.operands.size() == 1 || !isSound) {
        TellPeople(opened);
    }
    if (!isSound) {
        throw Refusal(Ending::FaultFound, request.operands[0] + ": the copy is damaged");
    }
    if (request.operands.size() > 1) {
        Compare(request, opened);
    } else if (opened.copy.kind == CopyKind::Ticket && !request.json) {
        TellTicket(opened.content);
    }
}

void HistoryRestore(const Request& request) {
    const OpenedCopy opened = Opened(request);
    const std::string path = FileMeantBy(request.operands[1]);
    FileLock lock;
    if (!IsStandardOutput(path)) {
        Require(lock.Take(path));
        RequireNew(request, path);
        if (fs::is_regular_file(path)) {
            KeepReplaced(request, path, opened.copy.kind);
        }
    }
    Deliver(path, opened.content);
    if (!opened.findings.faults.empty() && !request.force) {
        throw Refusal(Ending::FaultFound, path + ": written, but the copy is damaged");
    }
}

}  // namespace varno
