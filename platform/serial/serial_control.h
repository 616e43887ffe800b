// A serial port, in characters. One byte is one character.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/error.h"

namespace varno {

class SerialControl {
  public:
    // Characters that may be unsent at any time, those that the system has queued for the line
    // included: what is shown as sent has left, and closing the port discards little.
    static constexpr int OutBufferSize = 512;

    virtual ~SerialControl() = default;

    // 1 means COM1. Accepts 1 to 256; a refused number leaves the old one.
    virtual int CommPort() const = 0;
    [[nodiscard]] virtual Error SetCommPort(int port) = 0;

    // "rate,parity,data bits,stop bits". A refused text leaves the old one.
    virtual std::string Settings() const = 0;
    [[nodiscard]] virtual Error SetSettings(const std::string& settings) = 0;

    // False as well once the device has gone away: its first error closes the port.
    virtual bool PortOpen() const = 0;
    [[nodiscard]] virtual Error OpenPort() = 0;  // an error if it is open already
    // Discards what has not been sent yet. Harmless when closed.
    virtual void ClosePort() = 0;

    // Hands over one character or more for sending. All or none: an error if the port is closed or
    // they are more than there is room for.
    [[nodiscard]] virtual Error Output(std::string_view characters) = 0;
    // Lets events run until there is room for so many characters or the port is closed. A line that
    // stands still keeps it waiting.
    virtual void WaitForRoom(int characters) = 0;
    // Lets events run until the line has taken the last character or the port is closed, but not
    // longer than twice the time that the line needs, plus a second. An error if it has not.
    [[nodiscard]] virtual Error Drain() = 0;

    // All characters waiting; removes them.
    virtual std::string Input() = 0;

    std::function<void()> OnReceive;  // characters wait
};

}  // namespace varno
