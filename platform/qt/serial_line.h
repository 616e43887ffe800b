// What the system knows of a serial device and Qt does not tell.
#pragma once

#include <QSerialPort>
#include <string>

#include "platform/serial_ports.h"

namespace varno {

// The ports there are, by number; `linksFolder` holds the user's own numbering, where ports are
// devices. A port that only a link names need not be there.
PortNumbers NumberedPorts(const std::string& linksFolder);
bool DeviceExists(const std::string& device);
bool DeviceAllowed(const std::string& device);  // to be read and written by this user

// Characters that the system has taken and the line has not.
int QueuedBySystem(QSerialPort& port);
// The device has gone away.
bool HungUp(QSerialPort& port);
// The error that Qt reports is only that the line took nothing at this moment; Qt tries again.
bool WasOnlyBusy(const QSerialPort& port);
// Forgets what arrived before the port was opened.
void DiscardStaleInput(QSerialPort& port);

}  // namespace varno
