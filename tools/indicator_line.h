// The line to the indicator, for one transfer.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "link/block_transfer.h"
#include "link/port_session.h"
#include "platform/interruption.h"
#include "platform/qt/serial/serial_platform.h"
#include "tools/commands.h"
#include "tools/progress.h"

namespace varno {

// The number of a port as operators type it, "COM3" or "com3"; 0 if it is none.
int PortNumberIn(std::string operand);

class IndicatorLine {
  public:
    // Opens the port that the request names, or else the window's, or refuses. Ctrl+C closes it at
    // once and ends the program.
    explicit IndicatorLine(const Request& request);

    // The port as sentences call it.
    const std::string& Name() const { return found_.name; }

    // What the indicator sends, until it is complete or nothing more comes. Refuses if nothing
    // comes at all.
    std::string Receive();
    // Returns when the line has taken everything, or refuses.
    void Send(const std::string& image);

  private:
    using Clock = std::chrono::steady_clock;

    void Start();
    void Tick();
    void Take(const std::string& chunk);
    void Close();
    void EndIfInterrupted() const;

    Interruption interruption_;
    std::optional<std::chrono::seconds> wait_;  // nothing: for ever
    bool stoodStill_ = false;                   // for longer than that
    Clock::time_point lastMoved_ = Clock::now();
    FoundPort found_;
    SerialPlatform platform_;
    std::unique_ptr<SerialControl> port_;
    PortSession session_;
    Progress progress_;
    IncomingBlock incoming_;
    std::string image_;
    bool begun_ = false;
    bool complete_ = false;
};

}  // namespace varno
