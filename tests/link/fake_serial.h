// A serial port in memory, whose line takes every character at once.
#pragma once

#include <string>
#include <utility>

#include "platform/serial/serial_control.h"
#include "platform/serial/serial_settings.h"
#include "tests/fakes/fake_controls.h"

namespace varno {

class FakeSerial final : public SerialControl {
  public:
    int CommPort() const override { return port_; }
    Error SetCommPort(int port) override {
        port_ = port > 0 ? port : port_;
        return port > 0 ? Error() : "no such number";
    }
    std::string Settings() const override { return settings_; }
    Error SetSettings(const std::string& settings) override {
        const bool complete = settings.size() >= DefaultSerialSettings.size();
        settings_ = complete ? settings : settings_;
        return complete ? Error() : "no such settings";
    }
    bool PortOpen() const override { return open_; }
    Error OpenPort() override {
        if (open_) {
            return "already open";
        }
        open_ = !openError;
        return openError;
    }
    void ClosePort() override { open_ = false; }
    Error Output(std::string_view characters) override {
        const bool sending = open_ && !broken;
        sent += sending ? characters : "";
        return sending ? Error() : "cannot send";
    }
    void WaitForRoom(int /*characters*/) override { Raise(onWaitForRoom); }
    void Drain() override {}
    std::string Input() override { return std::exchange(arrived_, {}); }

    // Characters on the line. Nobody hears them while the port is closed.
    void Arrive(const std::string& characters) {
        if (open_) {
            arrived_ = characters;
            Raise(OnReceive);
        }
    }

    std::string sent;  // what the line has carried
    std::function<void()> onWaitForRoom;
    Error openError;
    bool broken = false;

  private:
    int port_ = 1;
    std::string settings_{DefaultSerialSettings};
    bool open_ = false;
    std::string arrived_;
};

}  // namespace varno
