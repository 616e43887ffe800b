// The serial control with a wire in memory, which takes every character at once. What it can be
// set to is up to the real one.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include "platform/serial/serial_control.h"

namespace varno {

class ScriptedLine final : public SerialControl {
  public:
    // `there` tells of the line as long as it lives.
    ScriptedLine(std::unique_ptr<SerialControl> real, ScriptedLine*& there)
        : real_(std::move(real)), there_(there) {
        there_ = this;
    }
    ~ScriptedLine() override { there_ = nullptr; }
    ScriptedLine(const ScriptedLine&) = delete;
    ScriptedLine& operator=(const ScriptedLine&) = delete;

    int CommPort() const override { return real_->CommPort(); }
    Error SetCommPort(int port) override { return real_->SetCommPort(port); }
    std::string Settings() const override { return real_->Settings(); }
    Error SetSettings(const std::string& settings) override { return real_->SetSettings(settings); }
    bool PortOpen() const override { return open_; }
    Error OpenPort() override {
        Error error = open_ ? "already open" : openError;
        open_ = open_ || !error;
        return error;
    }
    void ClosePort() override { open_ = false; }
    Error Output(std::string_view characters) override {
        const bool sending = open_ && !broken;
        sent += sending ? characters : "";
        return sending ? Error() : "cannot send";
    }
    void WaitForRoom(int /*characters*/) override { onWaitForRoom(); }
    Error Drain() override { return {}; }
    std::string Input() override { return std::exchange(arrived_, {}); }

    // Characters on the line. Nobody hears them while the port is closed.
    void Arrive(const std::string& characters) {
        if (open_) {
            arrived_ = characters;
            OnReceive();
        }
    }

    std::string sent;  // what the line has carried
    std::function<void()> onWaitForRoom = [] {};
    Error openError;
    bool broken = false;

  private:
    std::unique_ptr<SerialControl> real_;
    ScriptedLine*& there_;
    bool open_ = false;
    std::string arrived_;
};

}  // namespace varno
