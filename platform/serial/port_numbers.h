// Which device COM<n> is, where ports are devices with names of their own. Paths are UTF-8.
#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "platform/error.h"

namespace varno {

struct SerialDevice {
    std::string path;
    bool onBoard = false;  // not on an adapter that can be unplugged
};

// Device paths by port number. A device that a link names need not be there.
using PortNumbers = std::map<int, std::string>;

// The serial devices that are really there, as the system's folder of terminal devices lists them.
std::vector<SerialDevice> PresentDevices(const std::string& systemFolder = "/sys/class/tty");

// The links named COM<n>, with n from 1 to 256, in the folder; where they lead in the end.
PortNumbers ReadPortLinks(const std::string& folder);

// Links decide. Devices that no link names take the free numbers from 1 up, on-board ones first,
// then adapters, by name.
PortNumbers NumberPorts(const PortNumbers& links, std::vector<SerialDevice> devices);

struct FoundPort {
    std::string device;
    std::string name;  // as sentences call it: "COM3 (/dev/ttyUSB0)"
};

// From a port's number to its device. `linksFolder` holds the user's own numbering. Fails where the
// port is not there or not for this user; in the latter case `found` is filled in all the same.
[[nodiscard]] Error FindPort(int port, const std::string& linksFolder, FoundPort& found);
// The same for a device that is named itself.
[[nodiscard]] Error FindDevice(const std::string& device, const std::string& linksFolder,
                               FoundPort& found);

// What a serial control asks for its device.
using PortFinder = std::function<Error(int port, FoundPort& found)>;

}  // namespace varno
