// The serial control on QSerialPort.
#pragma once

#include <memory>

#include "platform/serial/port_numbers.h"
#include "platform/serial/serial_control.h"

namespace varno {

// `inBufferSize` characters can wait to be read; more wait in the system's own buffers.
std::unique_ptr<SerialControl> MakeSerialControl(PortFinder findPort, int inBufferSize);

}  // namespace varno
