// A serial port, in characters. One byte is one character.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace varno {

class SerialControl {
  public:
    virtual ~SerialControl() = default;

    // 1 means COM1. Accepts 1 to 256; a refused number leaves the old one.
    virtual int CommPort() const = 0;
    [[nodiscard]] virtual Error SetCommPort(int port) = 0;

    // "rate,parity,data bits,stop bits". A refused text leaves the old one.
    virtual std::string Settings() const = 0;
    [[nodiscard]] virtual Error SetSettings(const std::string& settings) = 0;

    virtual bool PortOpen() const = 0;
    [[nodiscard]] virtual Error OpenPort() = 0;  // an error if it is open already
    // Discards what has not been sent yet. Harmless when closed.
    virtual void ClosePort() = 0;

    // Hands over one character or more for sending.
    [[nodiscard]] virtual Error Output(std::string_view characters) = 0;
    // All characters waiting; removes them.
    virtual std::string Input() = 0;

    std::function<void()> OnReceive;  // characters wait
};

}  // namespace varno
