// The user's own numbering of serial ports: links named COM<n> in a folder.
#pragma once

#include <string>

#include "platform/error.h"

namespace varno {

// The number of a name such as "COM3", 1 to 256; 0 if it is none.
int PortNumberNamed(const std::string& name);
std::string PortName(int number);

std::string PortLinkPath(const std::string& folder, int number);

// Makes the port that device, unless it is one already. The folder is made if it is missing.
[[nodiscard]] Error LinkPort(const std::string& folder, int number, const std::string& device);
// An error if there is no such link.
[[nodiscard]] Error UnlinkPort(const std::string& folder, int number);

// The name that leads to a device wherever it is plugged in, if the system has one in its folder of
// such names; otherwise the device.
std::string StableName(const std::string& device,
                       const std::string& namesFolder = "/dev/serial/by-id");

}  // namespace varno
