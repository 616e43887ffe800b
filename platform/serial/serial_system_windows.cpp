#include "platform/serial/serial_system.h"

#include <windows.h>

#include "platform/serial/serial_settings.h"

namespace varno {

const bool HasOneAndAHalfStopBits = true;

// Devices are called after their ports.
PortNumbers NumberedPorts(const std::string&) {
    PortNumbers ports;
    for (int number = 1; number <= MaxCommPort; ++number) {
        const std::string name = "COM" + std::to_string(number);
        char target[MAX_PATH];
        if (QueryDosDeviceA(name.c_str(), target, MAX_PATH) != 0) {
            ports[number] = name;
        }
    }
    return ports;
}

bool DeviceExists(const std::string&) {
    return true;
}
bool DeviceAllowed(const std::string&) {
    return true;
}

// Qt holds on to characters until they are sent.
int QueuedBySystem(SystemHandle) {
    return 0;
}
// Qt reports it.
bool HungUp(SystemHandle) {
    return false;
}
// All that has arrived is in one buffer.
bool InputFollows(SystemHandle, int) {
    return false;
}

}  // namespace varno
