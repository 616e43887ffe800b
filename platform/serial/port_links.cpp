#include "platform/serial/port_links.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <string_view>

#include "platform/serial/serial_settings.h"

namespace varno {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view Prefix = "COM";

Error Failure(const std::string& path, const std::error_code& error) {
    return error ? Error(path + ": " + error.message()) : Error();
}

}  // namespace

int PortNumberNamed(const std::string& name) {
    const std::string_view digits =
        std::string_view(name).substr(std::min(name.size(), Prefix.size()));
    int number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number >= 1 && number <= MaxCommPort && name == PortName(number) ? number : 0;
}

std::string PortName(int number) {
    return std::string(Prefix) + std::to_string(number);
}

std::string PortLinkPath(const std::string& folder, int number) {
    return folder + "/" + PortName(number);
}

Error LinkPort(const std::string& folder, int number, const std::string& device) {
    std::error_code error;
    const std::string link = PortLinkPath(folder, number);
    if (fs::is_symlink(fs::symlink_status(link, error))) {
        return PortName(number) + " is " + fs::read_symlink(link, error).string() + " already.";
    }
    fs::create_directories(folder, error);
    if (!error) {
        fs::create_symlink(device, link, error);
    }
    return Failure(link, error);
}

Error UnlinkPort(const std::string& folder, int number) {
    std::error_code error;
    const std::string link = PortLinkPath(folder, number);
    if (!fs::is_symlink(fs::symlink_status(link, error))) {
        return PortName(number) + " is not linked.";
    }
    fs::remove(link, error);
    return Failure(link, error);
}

std::string StableName(const std::string& device, const std::string& namesFolder) {
    std::error_code error;
    const fs::path meant = fs::canonical(device, error);
    for (const fs::directory_entry& entry : fs::directory_iterator(namesFolder, error)) {
        if (fs::canonical(entry.path(), error) == meant) {
            return entry.path().string();
        }
    }
    return device;
}

}  // namespace varno
