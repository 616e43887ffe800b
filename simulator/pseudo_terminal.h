// A pseudo-terminal as the cable: the program opens its device, the simulated indicator serves the
// other end.
#pragma once

#include <string>
#include <string_view>

namespace varno {

class PseudoTerminal {
  public:
    PseudoTerminal();  // throws std::system_error if the system has none
    ~PseudoTerminal();
    PseudoTerminal(const PseudoTerminal&) = delete;
    PseudoTerminal& operator=(const PseudoTerminal&) = delete;

    const std::string& Device() const { return device_; }
    int Handle() const { return master_; }   // to wait on
    int Openings() const { return watch_; }  // to wait on too: HasProgram() may have changed

    // A program has the device open. The device of a program that went without closing it, because
    // it was killed, is made ready for the next one.
    bool HasProgram();
    // Whether some simulated indicator, in whatever process, is at the other end of the device.
    static bool IsServed(const std::string& device);

    std::string Read();                              // what has come, without waiting
    std::size_t Write(std::string_view characters);  // how many were taken, without waiting
    // While it is held, the program's characters wait on its own side.
    void Hold(bool held);

  private:
    int master_ = -1;
    int slave_ = -1;  // kept open, so that the device outlives the program's opening of it; locked
    int watch_ = -1;  // tells who opens and closes the device
    int programs_ = 0;
    bool held_ = false;
    std::string device_;
};

}  // namespace varno
