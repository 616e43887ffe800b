#include "simulator/station.h"

#include <algorithm>

namespace varno {

namespace {

constexpr std::chrono::milliseconds SilentAfter(1000);
constexpr std::chrono::milliseconds UnpluggedFor(1000);

Line::Time Now() {
    return std::chrono::steady_clock::now();
}

}  // namespace

Station::Station(Indicator& indicator) : indicator_(indicator) {}

void Station::Step() {
    const Line::Time now = Now();
    if (!cable_) {
        if (now < plugAgain_) {
            return;
        }
        Plug();
    }
    MoveToIndicator(now);
    MoveFromIndicator(now);
    if (!silent_ && now - lastHeard_ >= SilentAfter) {
        silent_ = true;
        indicator_.Silence();
    }
    if (line_.IsCut()) {
        Unplug();
    }
}

void Station::MoveToIndicator(Line::Time now) {
    if (WantsInput()) {
        line_.PutIn(Direction::ToIndicator, cable_->Read(), now);
    }
    const std::string heard = line_.TakeOut(Direction::ToIndicator, now);
    if (!heard.empty()) {
        lastHeard_ = now;
        silent_ = false;
        indicator_.Receive(heard);
    }
    cable_->Hold(!WantsInput());
}

void Station::MoveFromIndicator(Line::Time now) {
    line_.PutIn(Direction::FromIndicator, indicator_.TakeTransmission(), now);
    outgoing_ += line_.TakeOut(Direction::FromIndicator, now);
    if (!outgoing_.empty()) {
        outgoing_.erase(0, cable_->Write(outgoing_));
    }
}

void Station::Plug() {
    cable_ = std::make_unique<PseudoTerminal>();
    if (OnPlugged) {
        OnPlugged(cable_->Device());
    }
}

void Station::Unplug() {
    if (OnUnplugged) {
        OnUnplugged();
    }
    cable_.reset();
    line_.Repair();
    outgoing_.clear();
    plugAgain_ = Now() + UnpluggedFor;
}

std::chrono::milliseconds Station::LongestWait() const {
    Line::Time due = Line::Time::max();
    if (!cable_) {
        due = plugAgain_;
    } else {
        due = line_.NextDue().value_or(due);
        if (!silent_) {
            due = std::min(due, lastHeard_ + SilentAfter);
        }
    }
    if (due == Line::Time::max()) {
        return std::chrono::milliseconds(-1);
    }
    const auto wait = std::chrono::ceil<std::chrono::milliseconds>(due - Now());
    return std::max(wait, std::chrono::milliseconds(0));
}

}  // namespace varno
