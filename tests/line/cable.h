// The simulated indicator on a pseudo-terminal, served by this program's own event loop, and a real
// serial port at the other end of it.
#pragma once

#include <gtest/gtest.h>

#include <QSocketNotifier>
#include <QTimer>
#include <memory>

#include "block/image.h"
#include "platform/qt/serial/serial_port_adapter.h"
#include "simulator/port_offer.h"
#include "simulator/station.h"
#include "tests/line/event_loop.h"
#include "tests/link/scratch_folder.h"

namespace varno {

class Cable {
  public:
    explicit Cable(std::string memory = NewTicketBuffer()) : indicator(std::move(memory), {}) {
        station_.OnPlugged = [this](const std::string& device) {
            offer_.Offer(device);
            notifier_ = std::make_unique<QSocketNotifier>(station_.Handle(), QSocketNotifier::Read);
            QObject::connect(notifier_.get(), &QSocketNotifier::activated, [this] { Step(); });
        };
        station_.OnUnplugged = [this] {
            notifier_->setEnabled(false);
            notifier_.release()->deleteLater();  // it may be the one that called
            offer_.Withdraw();
        };
        due_.setSingleShot(true);
        due_.setTimerType(Qt::PreciseTimer);
        QObject::connect(&due_, &QTimer::timeout, [this] { Step(); });
        Step();
    }

    std::unique_ptr<SerialControl> MakePort(int inBufferSize = 8092) {
        auto port = MakeSerialControl(
            [this](int number, FoundPort& found) {
                return FindPort(number, folder_.Path(), found);
            },
            inBufferSize);
        EXPECT_FALSE(port->SetCommPort(offer_.Number()));
        return port;
    }

    // The indicator, or somebody at its panel, has done something.
    void Step() {
        station_.Step();
        if (notifier_) {
            notifier_->setEnabled(station_.WantsInput());
        }
        const int wait = static_cast<int>(station_.LongestWait().count());
        if (wait >= 0 || station_.WantsOutput()) {
            due_.start(wait >= 0 ? wait : 1);
        } else {
            due_.stop();
        }
    }
    void Cut() {
        Wire().Arm(Line::Fault::Cut, 0);
        Step();
    }
    void Stall() {
        Wire().Arm(Line::Fault::Stall, 0);
        Step();
    }
    // What the indicator received outside a capture.
    std::string Heard() {
        indicator.ShowHeard();
        return indicator.TakeScreen();
    }

    Line& Wire() { return station_.Wire(); }

    Indicator indicator;

  private:
    ScratchFolder folder_;
    PortOffer offer_{folder_.Path(), 0};
    Station station_{indicator};
    std::unique_ptr<QSocketNotifier> notifier_;
    QTimer due_;
};

}  // namespace varno
