#include "history/description.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <sstream>

#include "block/block_file.h"
#include "block/ticket_block.h"
#include "codec/marked_text.h"
#include "platform/rtf/rtf_reader.h"

namespace varno {
namespace {

std::string LocalTime(CopyTime time) {
    const std::time_t seconds =
        std::chrono::floor<std::chrono::seconds>(time).time_since_epoch().count();
    std::array<char, 80> text{};
    if (const std::tm* const local = std::localtime(&seconds)) {
        std::snprintf(text.data(), text.size(), "%04d-%02d-%02d %02d:%02d:%02d",
                      local->tm_year + 1900, local->tm_mon + 1, local->tm_mday, local->tm_hour,
                      local->tm_min, local->tm_sec);
    }
    return text.data();
}

std::string PortPhrase(const Copy& copy) {
    const bool isUpload = copy.cause == Cause::Upload || copy.cause == Cause::Uploaded;
    return copy.port.empty() ? "" : (isUpload ? " from " : " to ") + copy.port;
}

std::string WhatHappened(const Copy& copy, std::optional<bool> isInWork) {
    if (isInWork) {
        return *isInWork ? "Not saved: program still open" : "Never saved: program not closed";
    }
    return std::string(CauseText(copy.cause)) + PortPhrase(copy);
}

CopyFindings BlockFindings(const std::string& image) {
    std::vector<int> tickets = TicketBlock{.TicketBuffer = image}.Tickets();
    std::sort(tickets.begin(), tickets.end());
    tickets.erase(std::unique(tickets.begin(), tickets.end()), tickets.end());
    return {std::move(tickets), FaultsInImage(image)};
}

CopyFindings TicketFindings(std::string_view content) {
    MarkedText text;
    const Error error = LoadMarkedText(content, text);
    return error ? CopyFindings{.faults = {*error}} : CopyFindings();
}

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    return lower;
}

}  // namespace

CopyHeading HeadingOf(const Copy& copy, std::optional<bool> isInWork) {
    return {.when = LocalTime(copy.time),
            .what = WhatHappened(copy, isInWork),
            .kind = copy.kind == CopyKind::Block ? "block" : "ticket",
            .name = copy.name};
}

CopyFindings FindingsIn(CopyKind kind, std::string_view content) {
    return kind == CopyKind::Block ? BlockFindings(ImageIn(content)) : TicketFindings(content);
}

CopyFindings FindingsOf(const History& history, const Copy& copy) {
    std::string content;
    const Error error = history.Read(copy, content);
    return error ? CopyFindings{.faults = {*error}} : FindingsIn(copy.kind, content);
}

std::string TicketsText(CopyKind kind, const CopyFindings& findings) {
    std::string text;
    for (const int number : findings.tickets) {
        text += (text.empty() ? "" : ", ") + std::to_string(number);
    }
    return text.empty() && kind == CopyKind::Block ? "none" : text;
}

std::string SoundnessText(const CopyFindings& findings) {
    return findings.faults.empty() ? "sound" : findings.faults.front();
}

bool Matches(std::string_view text, std::string_view filter) {
    const std::string lower = Lower(text);
    std::istringstream words(Lower(filter));
    for (std::string word; words >> word;) {
        if (lower.find(word) == std::string::npos) {
            return false;
        }
    }
    return true;
}

}  // namespace varno
