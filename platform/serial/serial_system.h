// What the system knows of serial devices.
#pragma once

#include <cstdint>
#include <string>

#include "platform/serial/port_numbers.h"

namespace varno {

// Where it does not, the system would take 1.5 stop bits for 1 without a word.
extern const bool HasOneAndAHalfStopBits;

// The ports there are, by number; `linksFolder` holds the user's own numbering, where ports are
// devices. A port that only a link names need not be there.
PortNumbers NumberedPorts(const std::string& linksFolder);
bool DeviceExists(const std::string& device);
bool DeviceAllowed(const std::string& device);  // to be read and written by this user

// An open device as the system calls it: a descriptor or a handle.
using SystemHandle = std::intptr_t;

// Characters that the system has taken and the line has not.
int QueuedBySystem(SystemHandle device);
// The device has gone away.
bool HungUp(SystemHandle device);
// More characters have arrived, or do so within this time.
bool InputFollows(SystemHandle device, int milliseconds);

}  // namespace varno
