// Whole transfers over a pseudo-terminal, without a window: blocks come back equal, and whatever
// happens to the line, a transfer ends and the program comes to rest.
#include <gtest/gtest.h>

#include <random>

#include "link/block_transfer.h"
#include "link/port_session.h"
#include "tests/line/cable.h"

namespace varno {
namespace {

// A program at one end of the cable, the indicator at the other.
struct Connection {
    Cable cable;
    std::unique_ptr<SerialControl> port = cable.MakePort();
    PortSession session;
    int shown = 0;  // percents

    void Open() {
        ASSERT_EQ(port->OpenPort(), std::nullopt);
        session = PortSession(*port);
    }
    void Send(const std::string& image) {
        Open();
        // A turn for every 16th character is enough here, and saves most of the time.
        const auto doEvents = [turn = 0]() mutable {
            if (++turn % 16 == 0) {
                QCoreApplication::processEvents();
            }
        };
        SendBlock(image, session, {[this](int percent) { shown = percent; }, doEvents});
    }
    std::string Receive() {
        std::string image;
        bool complete = false;
        port->OnReceive = [&, incoming = IncomingBlock()]() mutable {
            complete = incoming.Take(port->Input(), image).complete;
        };
        Open();
        cable.indicator.Transmit();
        cable.Step();
        EXPECT_TRUE(WaitFor([&] { return complete; }));
        port->ClosePort();
        return image.substr(0, ImageLength);
    }
};

// Memories of any length and content: what is in them is no concern of the line.
std::string RandomImage(unsigned seed) {
    std::mt19937 random(seed);
    std::string memory(random() % (MemoryDigits + 1), '0');
    for (char& digit : memory) {
        digit = "0123456789ABCDEF"[random() % 16];
    }
    return SealTicketBuffer(memory);
}

TEST(Transfers, BlocksComeBackEqual) {
    Connection ends;
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        // The first time the program is faster than the line and has to wait for room.
        ends.cable.Wire().SetSpeed(seed == 1 ? 230400 : 0);
        const std::string image = RandomImage(seed);
        ends.cable.indicator.StartCapture();
        ends.Send(image);
        EXPECT_EQ(ends.session.Failure(), std::nullopt);
        ends.port->ClosePort();
        ASSERT_TRUE(WaitFor([&] { return ends.cable.indicator.Memory() == image; }));
        EXPECT_TRUE(ends.Receive() == image);
    }
}

enum class Fault { Cut, StallThenAbort, StallThenEnd };

void SendOverFault(Fault fault, int at) {
    Connection ends;
    Line& wire = ends.cable.Wire();
    wire.Arm(fault == Fault::Cut ? Line::Fault::Cut : Line::Fault::Stall, at);
    QTimer abort;
    QObject::connect(&abort, &QTimer::timeout, [&] {
        if (wire.IsStalled()) {
            fault == Fault::StallThenEnd ? ends.session.End() : void();
            ends.port->ClosePort();
        }
    });
    abort.start(2);
    ends.Send(NewTicketBuffer());
    if (fault != Fault::StallThenEnd) {
        EXPECT_EQ(ends.shown, 100);
        EXPECT_TRUE(ends.session.Failure() || at > 7000);  // the last characters were handed over
    }
    EXPECT_TRUE(WaitFor([&] { return !ends.port->PortOpen(); }));
    EXPECT_TRUE(ComesToRest(60));
}

TEST(Transfers, EndWhateverHappensToTheLine) {
    const std::pair<const char*, Fault> faults[] = {{"cut", Fault::Cut},
                                                    {"stall, then Abort", Fault::StallThenAbort},
                                                    {"stall, then end", Fault::StallThenEnd}};
    for (const auto& [name, fault] : faults) {
        for (const int at : {0, 1, 80, 4095, 4096, 4097, 8006, 8007, 8008, 8368}) {
            SCOPED_TRACE(testing::Message() << name << " at " << at);
            SendOverFault(fault, at);
        }
    }
}

}  // namespace
}  // namespace varno
