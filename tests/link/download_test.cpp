#include <gtest/gtest.h>

#include "link/progress.h"
#include "tests/link/fake_serial.h"
#include "tests/link/link_window.h"

namespace varno {
namespace {

struct DownloadTest : testing::Test {
    FakeSerial serial;
    LinkWindow window{serial};

    DownloadTest() { window.Load(TwoTickets()); }

    void Run() {
        window.ExpectConfirmation(Answer::Ok);
        window.download.DownloadButton_Click();
        window.platform.dialogs.ExpectNoMore();
    }
    // Runs `meanwhile` once, when events run behind the n-th character.
    void RunWith(int n, std::function<void()> meanwhile) {
        window.platform.onDoEvents = [this, n, meanwhile = std::move(meanwhile)] {
            if (++turns_ == n) {
                meanwhile();
            }
        };
        Run();
    }
    void ExpectIdle() {
        EXPECT_FALSE(serial.PortOpen());
        EXPECT_EQ(window.Message.Caption(), "");
        EXPECT_EQ(window.log, (Entries{"download started", "transfer ended"}));
    }

  private:
    int turns_ = 0;
};

struct Scenario : DownloadTest {
    void TestBody() override {}
};

TEST_F(DownloadTest, SendsImageAndFill) {
    window.Message.SetVisible(false);
    bool emptiedBeforeDrain = false;
    serial.onDrain = [&] { emptiedBeforeDrain = window.Message.Caption().empty(); };
    Run();
    EXPECT_EQ(serial.sent, TwoTickets() + Fill());
    EXPECT_FALSE(emptiedBeforeDrain);
    EXPECT_TRUE(window.Message.Visible());
    EXPECT_TRUE(window.TicketList.HasFocus());
    Entries texts;
    for (int percent = 1; percent <= 100; ++percent) {
        texts.push_back(TransmittingText(percent));
    }
    EXPECT_EQ(window.Message.painted, texts);
    ExpectIdle();
}

TEST_F(DownloadTest, SendsImagesOfAnyLength) {
    for (const std::size_t length : {0U, 1U, 8100U}) {
        SCOPED_TRACE(length);
        window.block.TicketBuffer.assign(length, '5');
        window.Message.painted.clear();
        serial.sent.clear();
        Run();
        EXPECT_EQ(serial.sent, window.block.TicketBuffer + Fill());
        EXPECT_EQ(window.Message.painted.size(), length / 80);
    }
}

TEST_F(DownloadTest, CancelChangesNothing) {
    window.ExpectConfirmation(Answer::Cancel);
    window.download.Transmit_Click();
    EXPECT_EQ(window.log, Entries{});
    EXPECT_EQ(serial.openings, 0);
}

TEST_F(DownloadTest, SaysWhyThePortDoesNotOpen) {
    serial.openError = "not there";
    window.ExpectConfirmation(Answer::Ok);
    window.ExpectError("not there", "Varno Ticket Formatter");
    window.download.Transmit_Click();
    EXPECT_EQ(window.log, Entries{"download started"});
    window.transfer.Form_KeyPress(27);
    ExpectIdle();
}

TEST_F(DownloadTest, AnnouncesTheMenu) {
    window.download.OnVarnoOpened = window.Log("menu");
    window.download.Varno_Click();
    EXPECT_EQ(window.log, Entries{"menu"});
}

TEST_F(DownloadTest, SendsTheBlockAsItWasAtTheStart) {
    RunWith(4000, [this] { window.block.TicketBuffer = ":other"; });
    EXPECT_EQ(serial.sent, TwoTickets() + Fill());
}

TEST_F(DownloadTest, DropsWhatArrives) {
    RunWith(4000, [this] { serial.Arrive(":8000" + TwoTickets()); });
    EXPECT_EQ(serial.sent, TwoTickets() + Fill());
    EXPECT_EQ(window.block.TicketBuffer, TwoTickets());
    EXPECT_EQ(window.TicketList.ListCount(), 2);
    ExpectIdle();
}

TEST_F(DownloadTest, GoesOnWithoutSendingOnceThePortFails) {
    using Action = void (*)(DownloadTest&);
    const std::pair<const char*, Action> failures[] = {
        {"abort", [](DownloadTest& t) { t.window.transfer.Abort_Click(); }},
        {"device gone", [](DownloadTest& t) { t.serial.ClosePort(); }},
        {"device broken", [](DownloadTest& t) { t.serial.broken = true; }},
    };
    for (const auto& [name, fail] : failures) {
        SCOPED_TRACE(name);
        Scenario other;
        other.RunWith(1024, [&, fail = fail] { fail(other); });
        EXPECT_LE(other.serial.sent.size(), 1024U);
        EXPECT_EQ(other.window.Message.painted.back(), TransmittingText(100));
        EXPECT_EQ(other.window.Message.Caption(), "");
        EXPECT_EQ(other.window.log.back(), "transfer ended");
        EXPECT_FALSE(other.serial.PortOpen());
    }
}

TEST_F(DownloadTest, SecondTransferFindsThePortOpen) {
    RunWith(1000, [this] {
        window.ExpectConfirmation(Answer::Ok);
        window.ExpectError("already open", "Varno Ticket Formatter");
        window.download.Transmit_Click();
        window.ExpectWarning(Answer::Ok);
        window.ExpectError("already open", "Error");
        window.upload.Retrieve_Click();
    });
    EXPECT_EQ(serial.sent, TwoTickets() + Fill());
    EXPECT_FALSE(serial.PortOpen());
}

TEST_F(DownloadTest, LeavesATransferAloneThatBeganAfterAbort) {
    RunWith(1000, [this] {
        window.transfer.Abort_Click();
        window.ExpectWarning(Answer::Ok);
        window.upload.Retrieve_Click();
    });
    EXPECT_TRUE(serial.PortOpen());
    EXPECT_EQ(serial.sent.size(), 512U);
    EXPECT_TRUE(window.Message.Caption().starts_with("Start TICKET BUFFER TRANSMISSION"));
    serial.Arrive(TwoTickets() + "\r");
    EXPECT_EQ(window.log.back(), "upload ended");
}

TEST_F(DownloadTest, ANewDownloadAfterAbortSendsOnlyItsOwn) {
    RunWith(1000, [this] {
        window.transfer.Abort_Click();
        serial.sent.clear();
        window.ExpectConfirmation(Answer::Ok);
        window.download.Transmit_Click();
    });
    EXPECT_EQ(serial.sent, TwoTickets() + Fill());
    EXPECT_FALSE(serial.PortOpen());
}

TEST_F(DownloadTest, StopsForGoodWhenTheWindowCloses) {
    std::size_t painted = 0;
    RunWith(1000, [&] {
        window.transfer.Stop();
        painted = window.Message.painted.size();
    });
    EXPECT_EQ(window.Message.painted.size(), painted);
    EXPECT_EQ(serial.sent.size(), 512U);
    ExpectIdle();
}

TEST_F(DownloadTest, AbortBitesDuringTheLastWait) {
    serial.onDrain = [this] { window.transfer.Abort_Click(); };
    Run();
    EXPECT_LT(serial.sent.size(), ImageLength + Fill().size());
    EXPECT_FALSE(serial.PortOpen());
}

}  // namespace
}  // namespace varno
