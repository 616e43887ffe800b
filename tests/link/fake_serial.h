// A serial port in memory. It takes 512 characters; waiting for room sends all of them.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "platform/serial_control.h"
#include "platform/serial_settings.h"
#include "tests/fakes/fake_controls.h"

namespace varno {

class FakeSerial final : public SerialControl {
  public:
    int CommPort() const override { return port_; }
    Error SetCommPort(int port) override {
        if (port < 1 || port > MaxCommPort) {
            return "no such number";
        }
        port_ = port;
        return std::nullopt;
    }
    std::string Settings() const override { return settings_; }
    Error SetSettings(const std::string& settings) override {
        SerialSettings read;
        if (ParseSerialSettings(settings, read)) {
            return "no such settings";
        }
        settings_ = settings;
        return std::nullopt;
    }
    bool PortOpen() const override { return open_; }
    Error OpenPort() override {
        if (open_) {
            return "already open";
        }
        if (!openError) {
            open_ = true;
            ++openings;
        }
        return openError;
    }
    void ClosePort() override {
        open_ = false;
        unsent_.clear();
        arrived_.clear();
    }
    Error Output(std::string_view characters) override {
        if (!open_ || broken || unsent_.size() + characters.size() > OutBufferSize) {
            return "cannot send";
        }
        unsent_ += characters;
        return std::nullopt;
    }
    void WaitForRoom(int characters) override {
        if (unsent_.size() + static_cast<std::size_t>(characters) > OutBufferSize) {
            Send();
        }
    }
    void Drain() override {
        Raise(onDrain);
        Send();
    }
    std::string Input() override { return std::exchange(arrived_, {}); }

    // Characters on the line. Nobody hears them while the port is closed.
    void Arrive(const std::string& characters) {
        if (open_) {
            arrived_ += characters;
            Raise(OnReceive);
        }
    }

    std::string sent;  // what the line has carried
    int openings = 0;
    Error openError;
    bool broken = false;
    std::function<void()> onDrain;

  private:
    void Send() { sent += std::exchange(unsent_, {}); }

    int port_ = 1;
    std::string settings_{DefaultSerialSettings};
    bool open_ = false;
    std::string unsent_;
    std::string arrived_;
};

}  // namespace varno
