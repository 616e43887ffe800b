#include "platform/serial/port_numbers.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <set>
#include <string_view>
#include <tuple>

#include "platform/serial/port_links.h"
#include "platform/serial/port_sentences.h"
#include "platform/serial/serial_system.h"

namespace varno {

namespace {

namespace fs = std::filesystem;

// The number that `text` writes without leading zeros or anything else, or 0.
int WholeNumber(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return std::to_string(number) == text ? number : 0;
}

// Of a link that leads nowhere, the place where it points.
std::string TargetOf(const fs::path& link) {
    std::error_code error;
    fs::path target = fs::canonical(link, error);
    if (error) {
        target = fs::read_symlink(link, error);
        target = error ? link : (link.parent_path() / target).lexically_normal();
    }
    return target.string();
}

// Serial chips that the system reserves a name for but did not find have type 0.
bool ReallyThere(const fs::path& entry) {
    std::error_code error;
    if (!fs::exists(entry / "device", error)) {
        return false;
    }
    std::ifstream type(entry / "type");
    int number = -1;
    type >> number;
    return number != 0;
}

bool OnUsb(const fs::path& entry) {
    std::error_code error;
    return fs::canonical(entry / "device", error).string().find("/usb") != std::string::npos;
}

// Sorts "ttyS10" behind "ttyS9".
std::tuple<bool, std::string, int> Order(const SerialDevice& device) {
    const std::size_t digits = device.path.find_last_not_of("0123456789") + 1;
    return {!device.onBoard, device.path.substr(0, digits),
            WholeNumber(std::string_view(device.path).substr(digits))};
}

}  // namespace

std::vector<SerialDevice> PresentDevices(const std::string& systemFolder) {
    std::vector<SerialDevice> devices;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(systemFolder, error)) {
        if (ReallyThere(entry.path())) {
            devices.push_back({"/dev/" + entry.path().filename().string(), !OnUsb(entry.path())});
        }
    }
    return devices;
}

PortNumbers ReadPortLinks(const std::string& folder) {
    PortNumbers links;
    std::error_code error;
    for (const fs::directory_entry& entry : fs::directory_iterator(folder, error)) {
        const int number = PortNumberNamed(entry.path().filename().string());
        if (number > 0) {
            links[number] = TargetOf(entry.path());
        }
    }
    return links;
}

PortNumbers NumberPorts(const PortNumbers& links, std::vector<SerialDevice> devices) {
    std::set<std::string> named;
    for (const auto& [number, path] : links) {
        named.insert(path);
    }
    std::sort(devices.begin(), devices.end(),
              [](const auto& a, const auto& b) { return Order(a) < Order(b); });
    PortNumbers ports = links;
    int number = 1;
    for (const SerialDevice& device : devices) {
        while (ports.contains(number)) {
            ++number;
        }
        if (!named.contains(device.path)) {
            ports[number] = device.path;
        }
    }
    return ports;
}

namespace {

PortNumbers PortsThere(const std::string& linksFolder) {
    PortNumbers ports = NumberedPorts(linksFolder);
    std::erase_if(ports, [](const auto& entry) { return !DeviceExists(entry.second); });
    return ports;
}

Error WhyForbidden(const FoundPort& found) {
    return DeviceAllowed(found.device) ? Error() : ForbiddenPortSentence(found.name);
}

}  // namespace

Error FindPort(int port, const std::string& linksFolder, FoundPort& found) {
    const PortNumbers ports = PortsThere(linksFolder);
    const auto entry = ports.find(port);
    if (entry == ports.end()) {
        return MissingPortSentence(PortName(port), ports);
    }
    found = {entry->second, PortName(port)};
    if (found.device != found.name) {
        found.name += " (" + found.device + ")";
    }
    return WhyForbidden(found);
}

Error FindDevice(const std::string& device, const std::string& linksFolder, FoundPort& found) {
    if (!DeviceExists(device)) {
        return MissingPortSentence(device, PortsThere(linksFolder));
    }
    found = {device, device};
    return WhyForbidden(found);
}

}  // namespace varno
