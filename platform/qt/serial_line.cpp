#include "platform/qt/serial_line.h"

#include <QSerialPortInfo>

#ifndef Q_OS_WIN
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#endif

namespace varno {

#ifdef Q_OS_WIN

PortNumbers NumberedPorts(const std::string&) {
    PortNumbers ports;
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts()) {
        if (const int number = info.portName().mid(3).toInt(); number > 0) {
            ports[number] = info.portName().toStdString();
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
int QueuedBySystem(QSerialPort&) {
    return 0;
}  // Qt holds on to it until it is sent
bool HungUp(QSerialPort&) {
    return false;
}  // Qt reports it
bool WasOnlyBusy(const QSerialPort& port) {
    return port.error() == QSerialPort::ResourceError &&
           port.errorString() == QString::fromLocal8Bit(std::strerror(EAGAIN));
}

void DiscardStaleInput(QSerialPort& port) {
    port.clear(QSerialPort::Input);
}

#else

PortNumbers NumberedPorts(const std::string& linksFolder) {
    return NumberPorts(ReadPortLinks(linksFolder), PresentDevices());
}

bool DeviceExists(const std::string& device) {
    return ::access(device.c_str(), F_OK) == 0;
}

bool DeviceAllowed(const std::string& device) {
    return ::access(device.c_str(), R_OK | W_OK) == 0;
}

int QueuedBySystem(QSerialPort& port) {
    int queued = 0;
    return ::ioctl(port.handle(), TIOCOUTQ, &queued) == 0 ? queued : 0;
}

bool HungUp(QSerialPort& port) {
    pollfd device = {port.handle(), 0, 0};
    return ::poll(&device, 1, 0) > 0;  // without being asked it reports only that it has gone
}

bool WasOnlyBusy(const QSerialPort& port) {
    return port.error() == QSerialPort::ResourceError &&
           port.errorString() == QString::fromLocal8Bit(std::strerror(EAGAIN));
}

void DiscardStaleInput(QSerialPort& port) {
    // What the system's first buffer could not hold follows once that one is empty.
    constexpr int maxRounds = 50;
    constexpr int followsWithinMilliseconds = 1;
    pollfd device = {port.handle(), POLLIN, 0};
    int rounds = 0;
    do {
        port.clear(QSerialPort::Input);
    } while (++rounds<maxRounds&& ::poll(&device, 1, followsWithinMilliseconds)> 0);
}

#endif

}  // namespace varno
