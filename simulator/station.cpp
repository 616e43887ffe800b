#include "simulator/station.h"

#include <algorithm>

namespace varno {

namespace {

constexpr std::chrono::milliseconds QuietAfter(1000);
constexpr std::chrono::milliseconds SilentAfter(10'000);
constexpr std::chrono::milliseconds UnpluggedFor(1000);

}  // namespace

Station::Station(Indicator& indicator)
    : indicator_(indicator),
      pauses_{{{QuietAfter, &Indicator::ShowHeard}, {SilentAfter, &Indicator::EndCapture}}} {}

void Station::Step(Line::Time now) {
    if (!cable_) {
        if (now < plugAgain_) {
            return;
        }
        Plug();
    }
    MoveToIndicator(now);
    MoveFromIndicator(now);
    EndPauses(now);
    if (line_.IsCut()) {
        Unplug(now);
    }
}

void Station::EndPauses(Line::Time now) {
    for (Pause& pause : pauses_) {
        if (!pause.over && pause.after.count() > 0 && now - lastHeard_ >= pause.after) {
            pause.over = true;
            (indicator_.*pause.then)();
        }
    }
}

void Station::MoveToIndicator(Line::Time now) {
    if (WantsInput()) {
        line_.PutIn(Direction::ToIndicator, cable_->Read(), now);
    }
    const std::string heard = line_.TakeOut(Direction::ToIndicator, now);
    if (!heard.empty()) {
        lastHeard_ = now;
        for (Pause& pause : pauses_) {
            pause.over = false;
        }
        indicator_.Receive(heard);
    }
    cable_->Hold(!WantsInput());
}

void Station::MoveFromIndicator(Line::Time now) {
    line_.PutIn(Direction::FromIndicator, indicator_.TakeTransmission(), now);
    outgoing_ += line_.TakeOut(Direction::FromIndicator, now);
    hasProgram_ = cable_->HasProgram();
    if (!hasProgram_) {
        outgoing_.clear();  // nobody listens
    } else if (!outgoing_.empty()) {
        outgoing_.erase(0, cable_->Write(outgoing_));
    }
    if (line_.IsEmpty(Direction::FromIndicator) && outgoing_.empty()) {
        indicator_.EndTransmission(true);
    }
}

void Station::Plug() {
    cable_ = std::make_unique<PseudoTerminal>();
    if (OnPlugged) {
        OnPlugged(cable_->Device());
    }
}

void Station::Unplug(Line::Time now) {
    if (OnUnplugged) {
        OnUnplugged();
    }
    indicator_.EndTransmission(false);
    cable_.reset();
    hasProgram_ = false;
    line_.Repair();
    outgoing_.clear();
    plugAgain_ = now + UnpluggedFor;
}

std::chrono::milliseconds Station::LongestWait() const {
    Line::Time due = Line::Time::max();
    if (!cable_) {
        due = plugAgain_;
    } else {
        due = line_.NextDue().value_or(due);
        for (const Pause& pause : pauses_) {
            if (!pause.over && pause.after.count() > 0) {
                due = std::min(due, lastHeard_ + pause.after);
            }
        }
    }
    if (due == Line::Time::max()) {
        return std::chrono::milliseconds(-1);
    }
    const auto wait =
        std::chrono::ceil<std::chrono::milliseconds>(due - std::chrono::steady_clock::now());
    return std::max(wait, std::chrono::milliseconds(0));
}

}  // namespace varno
