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
    int Handle() const { return master_; }  // to wait on

    std::string Read();                              // what has come, without waiting
    std::size_t Write(std::string_view characters);  // how many were taken, without waiting
    // While it is held, the program's characters wait on its own side.
    void Hold(bool held);

  private:
    int master_ = -1;
    int slave_ = -1;  // kept open, so that the device outlives the program's opening of it
    bool held_ = false;
    std::string device_;
};

}  // namespace varno
