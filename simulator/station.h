// The simulated indicator at its cable: moves characters between pseudo-terminal, line and
// indicator. It never waits; its owner waits for it.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>

#include "simulator/indicator.h"
#include "simulator/line.h"
#include "simulator/pseudo_terminal.h"

namespace varno {

class Station {
  public:
    explicit Station(Indicator& indicator);

    // The cable was plugged in: its device. Called at once with a first one by Step().
    std::function<void(const std::string& device)> OnPlugged;
    std::function<void()> OnUnplugged;

    // Moves what can be moved now.
    void Step();

    Line& Wire() { return line_; }

    // To be waited for before the next step: the handle (-1 while unplugged), what on it, and how
    // long at most.
    int Handle() const { return cable_ ? cable_->Handle() : -1; }
    bool WantsInput() const { return !line_.IsFull(Direction::ToIndicator); }
    bool WantsOutput() const { return !outgoing_.empty(); }
    std::chrono::milliseconds LongestWait() const;

  private:
    void Plug();
    void Unplug();
    void MoveToIndicator(Line::Time now);
    void MoveFromIndicator(Line::Time now);

    Indicator& indicator_;
    Line line_;
    std::unique_ptr<PseudoTerminal> cable_;
    std::string outgoing_;  // has passed the line, but not been taken by the system
    Line::Time lastHeard_;
    bool silent_ = true;
    Line::Time plugAgain_;  // while unplugged
};

}  // namespace varno
