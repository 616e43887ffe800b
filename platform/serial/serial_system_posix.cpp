#include "platform/serial/serial_system.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace varno {

const bool HasOneAndAHalfStopBits = false;

PortNumbers NumberedPorts(const std::string& linksFolder) {
    return NumberPorts(ReadPortLinks(linksFolder), PresentDevices());
}

bool DeviceExists(const std::string& device) {
    return ::access(device.c_str(), F_OK) == 0;
}

bool DeviceAllowed(const std::string& device) {
    return ::access(device.c_str(), R_OK | W_OK) == 0;
}

int QueuedBySystem(SystemHandle device) {
    int queued = 0;
    return ::ioctl(static_cast<int>(device), TIOCOUTQ, &queued) == 0 ? queued : 0;
}

bool HungUp(SystemHandle device) {
    pollfd polled = {static_cast<int>(device), 0, 0};
    return ::poll(&polled, 1, 0) > 0;  // without being asked it reports only that it has gone
}

bool InputFollows(SystemHandle device, int milliseconds) {
    pollfd polled = {static_cast<int>(device), POLLIN, 0};
    return ::poll(&polled, 1, milliseconds) > 0;
}

}  // namespace varno
