// The serial control on QSerialPort.
#pragma once

#include <memory>
#include <string>

#include "platform/serial/serial_control.h"

namespace varno {

// `portsFolder` may hold links named COM<n> that say which device is which port.
// `inBufferSize` characters can wait to be read; more wait in the system's own buffers.
std::unique_ptr<SerialControl> MakeSerialControl(const std::string& portsFolder, int inBufferSize);

}  // namespace varno
