#include "simulator/indicator.h"

#include <utility>

#include "block/block_content.h"
#include "block/rows.h"
#include "codec/code_name.h"
#include "codec/utf8.h"
#include "paper/effects_text.h"
#include "paper/layout.h"
#include "paper/text.h"

namespace varno {

namespace {

constexpr std::size_t HeardShown = 60;

std::string Count(std::size_t count, const std::string& thing) {
    return std::to_string(count) + " " + thing + (count == 1 ? "" : "s");
}

// Printable characters as they are, others as their codes.
std::string Readable(std::string_view characters) {
    std::string text;
    for (const char character : characters) {
        const auto code = static_cast<unsigned char>(character);
        text += code >= ' ' && code < 0x7F ? std::string(1, character)
                                           : "<" + std::to_string(code) + ">";
    }
    return text;
}

}  // namespace

Indicator::Indicator(std::string image, Effects effects) : effects_(std::move(effects)) {
    block_.TicketBuffer = std::move(image);
    block_.LoadKeys();
}

void Indicator::Transmit() {
    transmission_ += block_.TicketBuffer + "\r\n";
    transmitting_ = block_.Tickets().size();
    Say("transmitting " + Count(*transmitting_, "ticket"));
}

void Indicator::EndTransmission(bool isWhole) {
    if (const auto tickets = std::exchange(transmitting_, std::nullopt)) {
        Say(isWhole ? "transmitted, " + Count(*tickets, "ticket")
                    : "transmitting failed: the cable was pulled");
    }
}

void Indicator::StartCapture() {
    const std::size_t givenUp = capture_.Start();
    Say(givenUp == 0 ? "capturing" : "capturing, " + Count(givenUp, "character") + " given up");
}

void Indicator::PrintKey(int key) {
    const int ticket = block_.KeyTicket[static_cast<std::size_t>(key)];
    const std::string name(KeyNames[static_cast<std::size_t>(key)]);
    if (ticket == 0) {
        Say("no ticket is bound to " + name);
        return;
    }
    const BlockContent content = ContentOf(block_.TicketBuffer);
    const TicketRecord* const record = content.Find(ticket);
    if (record == nullptr) {
        Say("there is no ticket " + std::to_string(ticket));
        return;
    }
    const std::string title = name + ": ticket " + std::to_string(ticket);
    const Paper paper = LayOut(record->body, effects_);
    Say("-- " + title + " --\n" + PaperText(paper) + "--");
    display_ = title;
    Append(paper_, paper);
}

void Indicator::List() {
    const std::vector<int> tickets = block_.Tickets();
    for (const int ticket : tickets) {
        std::string keys;
        for (std::size_t key = 0; key < KeyCount; ++key) {
            if (block_.KeyTicket[key] == ticket) {
                keys += " " + std::string(KeyNames[key]);
            }
        }
        Say(std::to_string(ticket) + keys);
    }
    Say(Count(tickets.size(), "ticket"));
}

void Indicator::ListValues() {
    for (const auto& [word, value] : effects_.values) {
        Say(CodeName(word) + "=" + ToUtf8(value.text));
    }
    Say(Count(effects_.values.size(), "print code"));
}

void Indicator::ChangeValue(std::string_view assignment) {
    const std::string fault = SetValue(assignment, effects_);
    Say(fault.empty() ? "changed" : fault);
}

void Indicator::SendNoise() {
    for (int i = 0; i < NoiseLength; ++i) {
        noise_ = noise_ * 1103515245 + 12345;
        const char character = static_cast<char>(noise_ >> 16);
        transmission_ += character == ':' ? ';' : character;  // no image begins
    }
}

void Indicator::Say(std::string_view line) {
    screen_ += line;
    display_ = line.substr(0, line.find('\n'));
    if (!line.ends_with('\n')) {
        screen_ += '\n';
    }
}

void Indicator::Receive(std::string_view characters) {
    const std::size_t taken = capture_.Take(characters);
    ReportCapture();
    heard_ += characters.substr(taken);
}

void Indicator::EndCapture() {
    capture_.End();
    ReportCapture();
}

void Indicator::ShowHeard() {
    if (!heard_.empty()) {
        const bool all = heard_.size() <= HeardShown;
        Say("received " + Count(heard_.size(), "character") + ": " +
            Readable(std::string_view(heard_).substr(0, HeardShown)) + (all ? "" : " ..."));
        heard_.clear();
    }
}

void Indicator::ReportCapture() {
    if (std::string image = capture_.TakeImage(); !image.empty()) {
        block_.TicketBuffer = std::move(image);
        block_.LoadKeys();
        Say("captured, " + Count(block_.Tickets().size(), "ticket"));
    }
    if (const std::string fault = capture_.TakeFault(); !fault.empty()) {
        Say("capturing failed: " + fault);
    }
}

std::string Indicator::TakeTransmission() {
    return std::exchange(transmission_, {});
}

std::string Indicator::TakeScreen() {
    return std::exchange(screen_, {});
}

Paper Indicator::TakePaper() {
    return std::exchange(paper_, {});
}

}  // namespace varno
