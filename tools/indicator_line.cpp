#include "tools/indicator_line.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <iostream>

#include "block/image.h"
#include "link/communications.h"
#include "platform/serial/port_links.h"
#include "platform/serial/port_sentences.h"
#include "platform/user_folder.h"
#include "tools/refusal.h"

namespace varno {
namespace {

// A block that has begun comes without pauses.
constexpr std::chrono::seconds LongestPause(5);

std::optional<std::chrono::seconds> WaitIn(const std::string& text) {
    if (text.empty()) {
        return std::nullopt;
    }
    int seconds = 0;
    const auto result = std::from_chars(text.data(), text.data() + text.size(), seconds);
    if (result.ec != std::errc() || result.ptr != text.data() + text.size() || seconds < 1) {
        throw Refusal(Ending::WrongUsage, "\"" + text + "\" is no number of seconds");
    }
    return std::chrono::seconds(seconds);
}

bool IsDevice(const std::string& port) {
    return port.find('/') != std::string::npos;
}

// The port by its number or by its device.
PortFinder FinderFor(const std::string& port, FoundPort& found) {
    const std::string device = IsDevice(port) ? std::filesystem::absolute(port).string() : "";
    return [=, &found](int number, FoundPort& result) {
        Error error = !device.empty() ? FindDevice(device, PortsFolder(), result)
                                      : FindPort(number, PortsFolder(), result);
        found = result;
        return error;
    };
}

}  // namespace

int PortNumberIn(std::string operand) {
    for (char& c : operand) {
        c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    }
    return PortNumberNamed(operand);
}

IndicatorLine::IndicatorLine(const Request& request)
    : wait_(WaitIn(request.wait)),
      platform_([this] { Tick(); }),
      port_(platform_.CreateSerialControl(FinderFor(request.port, found_), InBufferSize)) {
    LoadCommunications(platform_.Settings(), *port_);
    if (const int number = PortNumberIn(request.port); number != 0) {
        Require(port_->SetCommPort(number), Ending::WrongUsage);
    } else if (!request.port.empty() && !IsDevice(request.port)) {
        throw Refusal(Ending::WrongUsage,
                      "\"" + request.port + "\" is no port: COM1 to COM256, or a device");
    }
    if (!request.settings.empty()) {
        Require(port_->SetSettings(request.settings), Ending::WrongUsage);
    }
    port_->OnReceive = [this] { Take(port_->Input()); };
    Require(port_->OpenPort());
}

void IndicatorLine::Tick() {
    const auto longest = begun_ ? wait_.value_or(LongestPause) : wait_;
    stoodStill_ = stoodStill_ || (longest && Clock::now() - lastMoved_ > *longest);
    if (stoodStill_ || interruption_.HasCome()) {
        Close();
    }
}

void IndicatorLine::Close() {
    session_.End();
    port_->ClosePort();
}

// The end of the program follows: the interruption waits for nothing but this object's end.
void IndicatorLine::EndIfInterrupted() const {
    if (interruption_.HasCome()) {
        throw Refusal(Ending::CouldNot, "");
    }
}

std::string IndicatorLine::Receive() {
    std::cerr << StartTransmission << '\n';
    Start();
    while (!complete_ && port_->PortOpen()) {
        platform_.WaitForEvents();
    }
    const bool lost = !complete_ && !stoodStill_;
    Close();
    progress_.End();
    EndIfInterrupted();
    const std::string ending = lost ? LostPortSentence(Name()) : "Nothing came for too long.";
    if (!begun_) {
        throw Refusal(Ending::CouldNot, ending);
    }
    if (image_.size() < ImageLength) {
        std::cerr << ending << '\n';
    }
    image_.resize(std::min(image_.size(), ImageLength));
    return image_;
}

void IndicatorLine::Take(const std::string& chunk) {
    const IncomingBlock::Step step = incoming_.Take(chunk, image_);
    begun_ = begun_ || IncomingBlock::Begins(chunk);
    complete_ = step.complete;
    lastMoved_ = Clock::now();
    if (begun_) {
        progress_.Show(ReceivingText(step.percent));
    }
}

void IndicatorLine::Send(const std::string& image) {
    Start();
    SendBlock(image, session_,
              {.ShowProgress = [this](int percent) { progress_.Show(TransmittingText(percent)); },
               .DoEvents =
                   [this] {
                       lastMoved_ = Clock::now();
                       platform_.DoEvents();
                   }});
    const Error failure = session_.Failure();
    Close();
    EndIfInterrupted();
    if (stoodStill_) {
        throw Refusal(Ending::CouldNot, Name() + " stood still for too long");
    }
    Require(failure);
}

void IndicatorLine::Start() {
    lastMoved_ = Clock::now();
    session_ = PortSession(*port_);
}

}  // namespace varno
