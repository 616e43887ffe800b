// Faults of the line at chosen places of a transfer. Whatever happens, the transfer ends in its
// proper state, nothing is asked or said that is not due, and the program comes to rest.
#include <gtest/gtest.h>

#include "link/progress.h"
#include "tests/line/cable.h"
#include "tests/link/link_window.h"

namespace varno {
namespace {

constexpr int RestMilliseconds = 60;
constexpr double RestingUse = 0.05;

enum class Fault { Cut, StallThenAbort, SilenceThenEsc, Closing };
constexpr std::pair<const char*, Fault> Faults[] = {{"cut", Fault::Cut},
                                                    {"stall, then abort", Fault::StallThenAbort},
                                                    {"silence, then Esc", Fault::SilenceThenEsc},
                                                    {"closing the window", Fault::Closing}};

// Passes everything on to a real port, one character at a time. Once the line has taken a certain
// number of characters, something happens.
class TrippedPort final : public SerialControl {
  public:
    TrippedPort(SerialControl& port, std::size_t at, std::function<void()> trip)
        : port_(port), at_(at), trip_(std::move(trip)) {
        port_.OnReceive = [this] { OnReceive(); };
    }

    int CommPort() const override { return port_.CommPort(); }
    Error SetCommPort(int port) override { return port_.SetCommPort(port); }
    std::string Settings() const override { return port_.Settings(); }
    Error SetSettings(const std::string& settings) override { return port_.SetSettings(settings); }
    bool PortOpen() const override { return port_.PortOpen(); }
    Error OpenPort() override {
        Error error = port_.OpenPort();
        Trip();
        return error;
    }
    void ClosePort() override { port_.ClosePort(); }
    Error Output(std::string_view characters) override {
        for (const char character : characters) {
            if (Error error = port_.Output({&character, 1})) {
                return error;
            }
            ++handedOver_;
            Trip();
        }
        return std::nullopt;
    }
    void WaitForRoom(int characters) override { port_.WaitForRoom(characters); }
    void Drain() override { port_.Drain(); }
    std::string Input() override { return port_.Input(); }

    std::size_t HandedOver() const { return handedOver_; }

  private:
    void Trip() {
        if (handedOver_ == at_ && trip_) {
            port_.Drain();
            std::exchange(trip_, nullptr)();
        }
    }

    SerialControl& port_;
    std::size_t at_;
    std::function<void()> trip_;
    std::size_t handedOver_ = 0;
};

struct FaultyTransfer {
    explicit FaultyTransfer(Fault expected, std::size_t at = std::string::npos)
        : fault(expected), tripped(*port, at, [this] { Happen(); }), window(tripped) {
        window.platform.onDoEvents = [] { QCoreApplication::processEvents(); };
        QObject::connect(&abortWhenStuck, &QTimer::timeout, [this] {
            if (std::exchange(handedOver, tripped.HandedOver()) == tripped.HandedOver()) {
                window.transfer.Abort_Click();
                abortWhenStuck.stop();
            }
        });
    }

    void Happen() {
        happened = true;
        switch (fault) {
            case Fault::Cut:
                return cable.Cut();
            case Fault::StallThenAbort:
                cable.Stall();
                return abortWhenStuck.start(2);
            case Fault::SilenceThenEsc:
                return QTimer::singleShot(0, [this] { window.transfer.Form_KeyPress(27); });
            case Fault::Closing:
                return QTimer::singleShot(0, [this] { window.transfer.Stop(); });
        }
    }
    void ExpectRest() {
        EXPECT_FALSE(port->PortOpen());
        EXPECT_EQ(window.Message.Caption(), "");
        ASSERT_FALSE(window.log.empty());
        EXPECT_EQ(window.log.back(), "transfer ended");
        EXPECT_LT(ProcessorUse(RestMilliseconds), RestingUse);
    }

    Fault fault;
    bool happened = false;
    Cable cable{TwoTickets()};
    std::unique_ptr<SerialControl> port = cable.MakePort();
    TrippedPort tripped;
    LinkWindow window;
    QTimer abortWhenStuck;
    std::size_t handedOver = 0;
};

TEST(Faults, EndADownload) {
    for (const auto& [name, fault] : Faults) {
        for (const unsigned at : {0U, 1U, 80U, 4095U, 4096U, 4097U, 8006U, 8007U, 8008U, 8368U}) {
            SCOPED_TRACE(testing::Message() << name << " at " << at);
            FaultyTransfer run(fault, at);
            run.window.Load(TwoTickets());
            run.window.ExpectConfirmation(Answer::Ok);
            run.window.download.Transmit_Click();
            EXPECT_TRUE(run.happened);
            EXPECT_EQ(run.window.block.TicketBuffer, TwoTickets());
            const auto& painted = run.window.Message.painted;
            const bool shownToTheEnd = !painted.empty() && painted.back() == TransmittingText(100);
            EXPECT_EQ(shownToTheEnd, fault != Fault::Closing || at >= ImageLength);
            // Abort bites at once: no more than what was in flight goes on.
            EXPECT_LE(run.tripped.HandedOver(), at + 2 * SerialControl::OutBufferSize);
            run.ExpectRest();
        }
    }
}

TEST(Faults, EndAnUpload) {
    for (const auto& [name, fault] : Faults) {
        for (const unsigned at : {0U, 1U, 80U, 4095U, 4096U, 4097U, 8006U, 8007U}) {
            SCOPED_TRACE(testing::Message() << name << " at " << at);
            FaultyTransfer run(fault);
            run.window.upload.Retrieve_Click();
            run.cable.Wire().StallAfter(static_cast<int>(at));
            run.cable.indicator.Transmit();
            run.cable.Step();
            EXPECT_TRUE(WaitFor([&] { return run.window.block.TicketBuffer.size() == at; }));
            const std::string caption = run.window.Message.Caption();
            EXPECT_EQ(caption.starts_with("Receiving"), at > 0) << caption;
            run.Happen();
            EXPECT_TRUE(WaitFor([&] { return !run.port->PortOpen(); }));
            EXPECT_EQ(run.window.block.TicketBuffer, TwoTickets().substr(0, at));
            if (fault == Fault::Cut) {  // it waits for Abort, as it does for a silent indicator
                EXPECT_EQ(run.window.Message.Caption(), caption);
                EXPECT_LT(ProcessorUse(RestMilliseconds), RestingUse);
                run.window.transfer.Abort_Click();
            }
            run.ExpectRest();
        }
    }
}

}  // namespace
}  // namespace varno
