// The simulated indicator at its cable: moves characters between pseudo-terminal, line and
// indicator. It never waits; its owner waits for it.
#pragma once

#include <array>
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
    void Step(Line::Time now = std::chrono::steady_clock::now());

    Line& Wire() { return line_; }
    const Line& Wire() const { return line_; }
    bool IsPlugged() const { return cable_ != nullptr; }
    bool HasProgram() const { return hasProgram_; }  // that has the device open
    // A capture ends when nothing has come for so long; 0: never.
    void SetSilence(std::chrono::seconds silence) { EndingCapture().after = silence; }

    // To be waited for before the next step: the handles (-1 while unplugged), what on the first,
    // and how long at most. The second has input when the device was opened or closed.
    int Handle() const { return cable_ ? cable_->Handle() : -1; }
    int Openings() const { return cable_ ? cable_->Openings() : -1; }
    bool WantsInput() const { return !line_.IsFull(Direction::ToIndicator); }
    bool WantsOutput() const { return !outgoing_.empty(); }
    std::chrono::milliseconds LongestWait() const;

  private:
    // What the indicator does when nothing has come for a while.
    struct Pause {
        std::chrono::milliseconds after;
        void (Indicator::*then)();
        bool over = true;
    };

    Pause& EndingCapture() { return pauses_.back(); }
    void EndPauses(Line::Time now);
    void Plug();
    void Unplug(Line::Time now);
    void MoveToIndicator(Line::Time now);
    void MoveFromIndicator(Line::Time now);

    Indicator& indicator_;
    Line line_;
    std::unique_ptr<PseudoTerminal> cable_;
    bool hasProgram_ = false;
    std::string outgoing_;  // has passed the line, but not been taken by the system
    Line::Time lastHeard_;
    std::array<Pause, 2> pauses_;
    Line::Time plugAgain_;  // while unplugged
};

}  // namespace varno
