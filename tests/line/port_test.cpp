// The serial control itself, on a pseudo-terminal.
#include <gtest/gtest.h>

#include <QElapsedTimer>

#include "tests/line/cable.h"

namespace varno {
namespace {

struct PortTest : testing::Test {
    Cable cable;
    std::unique_ptr<SerialControl> port = cable.MakePort();
    std::string received;

    PortTest() {
        port->OnReceive = [this] { received += port->Input(); };
    }
    static void ExpectComplaint(const Error& error, const std::string& part) {
        EXPECT_NE(error.value_or("none").find(part), std::string::npos) << error.value_or("none");
    }
    void Send(const std::string& characters) {
        for (const char character : characters) {
            port->WaitForRoom(1);
            ASSERT_FALSE(port->Output({&character, 1}));
        }
    }
};

TEST_F(PortTest, RefusesWhatItCannotBeSetTo) {
    ASSERT_FALSE(port->SetCommPort(256));
    EXPECT_TRUE(port->SetCommPort(0));
    EXPECT_TRUE(port->SetCommPort(257));
    EXPECT_EQ(port->CommPort(), 256);
    ASSERT_FALSE(port->SetSettings("115200,e,7,2"));
    EXPECT_TRUE(port->SetSettings("115200,e,7,3"));
    EXPECT_EQ(port->Settings(), "115200,e,7,2");
}

TEST_F(PortTest, SaysWhyItDoesNotOpen) {
    const std::string here = "COM" + std::to_string(port->CommPort()) + " (/dev/pts/";
    ASSERT_FALSE(port->OpenPort());
    ExpectComplaint(port->OpenPort(), "open already");
    const auto other = cable.MakePort();
    ExpectComplaint(other->OpenPort(), "in use by another program");
    port->ClosePort();
    EXPECT_FALSE(other->OpenPort());

    ASSERT_FALSE(port->SetCommPort(250));
    ExpectComplaint(port->OpenPort(), "There is no COM250");
    ExpectComplaint(port->OpenPort(), here);
    EXPECT_FALSE(port->PortOpen());
    ExpectComplaint(port->Output("x"), "not open");
}

TEST_F(PortTest, ForgetsWhatCameBeforeItWasOpened) {
    cable.indicator.Transmit();  // more than the system's first buffer holds
    cable.Step();
    ASSERT_FALSE(port->OpenPort());
    cable.indicator.Transmit();
    cable.Step();
    ASSERT_TRUE(WaitFor([&] { return received.size() >= 8009; }));
    EXPECT_EQ(received, NewTicketBuffer() + "\r\n");
}

TEST_F(PortTest, TakesABurstInPieces) {
    port = cable.MakePort(1024);
    std::size_t largest = 0;
    port->OnReceive = [&] {
        const std::string piece = port->Input();
        largest = std::max(largest, piece.size());
        received += piece;
    };
    ASSERT_FALSE(port->OpenPort());
    std::string expected;
    while (expected.size() < 1'000'000) {
        cable.indicator.Transmit();
        expected += NewTicketBuffer() + "\r\n";
    }
    cable.Step();
    EXPECT_TRUE(WaitFor([&] { return received.size() >= expected.size(); }));
    EXPECT_EQ(received, expected);
    EXPECT_LE(largest, 1024U);
}

TEST_F(PortTest, HoldsTheSenderBackAndDiscardsOnClosing) {
    ASSERT_FALSE(port->OpenPort());
    cable.Stall();
    Send(std::string(512, 'x'));
    ExpectComplaint(port->Output("y"), "stands still");

    bool waiting = true;
    QTimer::singleShot(0, [&] {
        EXPECT_TRUE(waiting);
        port->ClosePort();
    });
    port->WaitForRoom(1);
    waiting = false;
    EXPECT_FALSE(port->PortOpen());
    cable.Wire().Resume();
    cable.Step();
    EXPECT_EQ(cable.Heard(), "");

    ASSERT_FALSE(port->OpenPort());
    Send("z");
    EXPECT_FALSE(port->Drain());
    EXPECT_TRUE(WaitFor([&] { return cable.Heard() == "received 1 character: z\n"; }));
}

TEST_F(PortTest, DrainsUntilTheLineHasTakenAllOrTimeIsUp) {
    ASSERT_FALSE(port->SetSettings("1200,n,8,1"));
    ASSERT_FALSE(port->OpenPort());
    cable.Stall();
    Send(std::string(60, 'x'));  // half a second on the line
    QElapsedTimer elapsed;
    elapsed.start();
    ExpectComplaint(port->Drain(), "the line stands still");
    const qint64 untilTimeWasUp = elapsed.elapsed();
    EXPECT_GE(untilTimeWasUp, 1900);
    EXPECT_TRUE(port->PortOpen());

    QTimer::singleShot(0, [&] {
        cable.Wire().Resume();
        cable.Step();
    });
    elapsed.restart();
    EXPECT_FALSE(port->Drain());
    EXPECT_LT(elapsed.elapsed(), untilTimeWasUp);
    EXPECT_TRUE(WaitFor([&] { return cable.Heard().starts_with("received 60"); }));
}

TEST_F(PortTest, TakesTheFirstErrorForTheLast) {
    ASSERT_FALSE(port->OpenPort());
    cable.Cut();
    EXPECT_TRUE(WaitFor([&] { return !port->PortOpen(); }));
    EXPECT_TRUE(ComesToRest(300));
    ExpectComplaint(port->Output("x"), "gone away");
    ExpectComplaint(port->OpenPort(), "There is no COM");

    // The cable is plugged in again by itself.
    EXPECT_TRUE(WaitFor([&] { return !port->OpenPort(); }));
    Send("back");
    EXPECT_TRUE(WaitFor([&] { return cable.Heard() == "received 4 characters: back\n"; }));
}

}  // namespace
}  // namespace varno
