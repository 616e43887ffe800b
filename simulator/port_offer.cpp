#include "simulator/port_offer.h"

#include <filesystem>
#include <stdexcept>
#include <utility>

#include "platform/serial/port_links.h"
#include "platform/serial/port_numbers.h"
#include "platform/serial/serial_settings.h"
#include "simulator/pseudo_terminal.h"

namespace varno {

namespace {

namespace fs = std::filesystem;

// Links straight to a pseudo-terminal are those of simulated indicators. One that was killed leaves
// its own behind, and whoever gets that pseudo-terminal next is no indicator.
bool IsLeftBehind(const std::string& target, const std::string& newDevice) {
    return target.starts_with("/dev/pts/") &&
           (target == newDevice || !PseudoTerminal::IsServed(target));
}

}  // namespace

void PortOffer::Offer(const std::string& device) {
    RemoveLeftBehind(device);
    if (number_ == 0) {
        number_ = FreeNumber();
    }
    if (const Error error = LinkPort(folder_, number_, device)) {
        throw std::runtime_error(*error);
    }
    offered_ = device;
}

void PortOffer::Withdraw() {
    std::error_code ignored;
    if (!offered_.empty() &&
        fs::read_symlink(PortLinkPath(folder_, number_), ignored) == offered_) {
        fs::remove(PortLinkPath(folder_, number_), ignored);
    }
    offered_.clear();
}

void PortOffer::RemoveLeftBehind(const std::string& device) const {
    for (const auto& [number, ignored] : ReadPortLinks(folder_)) {
        std::error_code noLink;
        if (IsLeftBehind(fs::read_symlink(PortLinkPath(folder_, number), noLink), device)) {
            fs::remove(PortLinkPath(folder_, number));
        }
    }
}

int PortOffer::FreeNumber() const {
    const PortNumbers ports = NumberPorts(ReadPortLinks(folder_), PresentDevices());
    int number = 1;
    while (ports.contains(number)) {
        ++number;
    }
    if (number > MaxCommPort) {
        throw std::runtime_error("All port numbers are taken.");
    }
    return number;
}

}  // namespace varno
