#include "link/terminal.h"

#include <gtest/gtest.h>

#include "link/terminal_design.h"
#include "tests/fakes/fake_platform.h"
#include "tests/link/fake_serial.h"

namespace varno {
namespace {

struct TerminalTest : testing::Test {
    FakeSerial mainPort;
    FakePlatform platform;
    FakeSerial* port = nullptr;  // the terminal's own, while its window is loaded
    Error openError;
    Terminal terminal{platform, mainPort};

    TerminalTest() {
        platform.makeSerialControl = [this](int inBufferSize) {
            EXPECT_EQ(inBufferSize, 1024);
            auto made = std::make_unique<FakeSerial>();
            made->openError = openError;
            port = made.get();
            return made;
        };
    }
    // The script leaves the window open.
    void Open(const FakeWindow::Script& script) {
        platform.Operate([script](FakeWindow& window) {
            script(window);
            window.Get<FakeButton>("Command2").Click();
        });
        terminal.OpenTerminalWindow_Click();
    }
    void ExpectError(const char* text) {
        platform.dialogs.Expect({text, "Error", Buttons::Ok, Icon::Critical}, Answer::Ok);
    }
    static FakeTextArea& Text(FakeWindow& window) { return window.Get<FakeTextArea>("Text1"); }
};

TEST_F(TerminalTest, TakesThePortOverEachTimeItIsShown) {
    EXPECT_FALSE(mainPort.SetCommPort(4) || mainPort.SetSettings("4800,e,7,1"));
    EXPECT_FALSE(mainPort.OpenPort());  // an upload waits
    Open([&](FakeWindow& window) {
        EXPECT_FALSE(mainPort.PortOpen());
        EXPECT_EQ(port->CommPort(), 4);
        EXPECT_EQ(port->Settings(), "4800,e,7,1");
        port->Arrive("ready\r\n");
        Text(window).Type("A\r\x1B");
        EXPECT_EQ(Text(window).Text(), "ready\r\nA\r\x1B");
        EXPECT_EQ(port->sent, "A\r\x1B");
        window.Get<FakeButton>("Command1").Click();
        port->Arrive("more");
    });
    EXPECT_FALSE(port->PortOpen());
    EXPECT_FALSE(mainPort.OpenPort());
    platform.Operate([&](FakeWindow& window) {
        EXPECT_FALSE(mainPort.PortOpen());
        EXPECT_TRUE(port->PortOpen());
        EXPECT_EQ(Text(window).Text(), "more");  // Exit has only hidden it
        window.Close();
        EXPECT_FALSE(port->PortOpen());
    });
    terminal.OpenTerminalWindow_Click();
    Open([&](FakeWindow& window) { EXPECT_EQ(Text(window).Text(), ""); });
}

TEST_F(TerminalTest, SaysOnceThatThereIsNoLine) {
    openError = "in use";
    ExpectError("in use");
    Open([&](FakeWindow& window) {
        Text(window).Type("abc");
        EXPECT_TRUE(window.IsShown());
    });
    port->openError.reset();
    Open([&](FakeWindow& window) {
        port->broken = true;
        ExpectError("cannot send");
        Text(window).Type("abc");
        EXPECT_FALSE(port->PortOpen());
        EXPECT_EQ(Text(window).Text(), "abcabc");
    });
}

TEST_F(TerminalTest, LaysItselfOutOrClosesWhenTooSmall) {
    const auto layout = LayOutTerminal(6000, 7000);
    ASSERT_TRUE(layout);
    EXPECT_EQ(layout->text, (Place{120, 60, 5655, 5860}));
    EXPECT_EQ(layout->clear, (Place{120, 6050, 855, 495}));
    EXPECT_EQ(layout->exit, (Place{4900, 6050, 855, 495}));
    EXPECT_TRUE(LayOutTerminal(345, 1140));
    EXPECT_FALSE(LayOutTerminal(344, 7000));
    EXPECT_FALSE(LayOutTerminal(6000, 1139));

    Open([&](FakeWindow& window) {
        window.SetOuterPlace({0, 0, 6000, 7000});
        EXPECT_EQ(Text(window).GetPlace(), layout->text);
        window.SetOuterPlace({0, 0, 6000, 1100});
        EXPECT_FALSE(window.IsShown());
        EXPECT_FALSE(port->PortOpen());
    });
    Open([&](FakeWindow& window) {
        window.OnResize();
        EXPECT_TRUE(window.IsShown());
    });
}

}  // namespace
}  // namespace varno
