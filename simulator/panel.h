// The simulated indicator's panel: one command a line.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "simulator/indicator.h"
#include "simulator/line.h"

namespace varno {

// What the panel does to the line and its end; both belong to the caller.
struct LineSwitches {
    std::function<void(int baud)> speed;
    std::function<void(Line::Fault fault, int characters)> arm;
    std::function<void()> resume;
    std::function<void(int seconds)> silence;
};

// The whole number from 0 on that the text writes, or -1.
int WholeNumber(std::string_view text);

class Panel {
  public:
    Panel(Indicator& indicator, LineSwitches line)
        : indicator_(indicator), line_(std::move(line)) {}

    // Letters in either case. Answers, complaints included, go to the indicator's screen.
    void Run(std::string_view commandLine);
    bool HasQuit() const { return hasQuit_; }

  private:
    bool Do(const std::string& name, const std::string& argument);
    bool DoWithArgument(const std::string& name, const std::string& argument);
    bool DoWithNumber(const std::string& name, int number);
    void Save(const std::string& path);

    Indicator& indicator_;
    LineSwitches line_;
    bool hasQuit_ = false;
};

}  // namespace varno
