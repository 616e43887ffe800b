// The serial line for a program without a window.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/serial/port_numbers.h"
#include "platform/serial/serial_control.h"
#include "platform/settings_store.h"

namespace varno {

// What is known of the adapter that a device is on; empty where nothing is.
struct Adapter {
    std::string name;
    std::string serialNumber;
};
std::map<std::string, Adapter> Adapters();  // by device

// Ports, the window's settings, and events. One at a time.
class SerialPlatform {
  public:
    // `onTick` is called often while events run, whatever waits for them.
    explicit SerialPlatform(std::function<void()> onTick);
    ~SerialPlatform();
    SerialPlatform(const SerialPlatform&) = delete;
    SerialPlatform& operator=(const SerialPlatform&) = delete;

    std::unique_ptr<SerialControl> CreateSerialControl(PortFinder findPort, int inBufferSize);
    const SettingsStore& Settings() const;  // to be read only: they are the window's

    void DoEvents();       // those that wait
    void WaitForEvents();  // and waits for some

  private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace varno
