#include "simulator/port_offer.h"

#include <cstdlib>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "platform/serial_ports.h"
#include "platform/serial_settings.h"

namespace varno {

namespace {

namespace fs = std::filesystem;

std::string Environment(const char* name) {
    const char* const value = std::getenv(name);
    return value != nullptr ? value : "";
}

// Left behind by a simulated indicator that was killed. Only those lead to a pseudo-terminal.
bool IsLeftBehind(const std::string& device) {
    return device.starts_with("/dev/pts/") && !fs::exists(device);
}

}  // namespace

std::string DefaultPortsFolder() {
    std::string data = Environment("XDG_DATA_HOME");
    if (data.empty()) {
        data = Environment("HOME") + "/.local/share";
    }
    return data + "/VarnoTicketFormatter/ports";
}

void PortOffer::Offer(const std::string& device) {
    fs::create_directories(folder_);
    if (number_ == 0) {
        number_ = FreeNumber();
    }
    const PortNumbers links = ReadPortLinks(folder_);
    if (const auto link = links.find(number_); link != links.end()) {
        if (!IsLeftBehind(link->second)) {
            throw std::runtime_error("COM" + std::to_string(number_) + " is " + link->second +
                                     " already.");
        }
        fs::remove(LinkPath());
    }
    fs::create_symlink(device, LinkPath());
    offered_ = device;
}

void PortOffer::Withdraw() {
    std::error_code ignored;
    if (!offered_.empty() && fs::read_symlink(LinkPath(), ignored) == offered_) {
        fs::remove(LinkPath(), ignored);
    }
    offered_.clear();
}

int PortOffer::FreeNumber() const {
    PortNumbers links = ReadPortLinks(folder_);
    std::erase_if(links, [](const auto& link) { return IsLeftBehind(link.second); });
    const PortNumbers ports = NumberPorts(links, PresentDevices());
    int number = 1;
    while (ports.contains(number)) {
        ++number;
    }
    if (number > MaxCommPort) {
        throw std::runtime_error("All port numbers are taken.");
    }
    return number;
}

std::string PortOffer::LinkPath() const {
    return folder_ + "/COM" + std::to_string(number_);
}

}  // namespace varno
