// Upload and download as the window runs them.
#include <gtest/gtest.h>

#include "tests/link/fake_serial.h"
#include "tests/link/link_window.h"

namespace varno {
namespace {

using enum CommandEvent;
using Captions = std::vector<std::string>;

struct TransferTest : testing::Test {
    FakeSerial serial;
    LinkWindow window{serial};

    TransferTest() { window.Load(TwoTickets()); }

    void Upload(const char* error = nullptr) {
        window.ExpectWarning(Answer::Ok);
        ExpectError(error, "Error");
        window.upload.UploadButton_Click();
    }
    void Download(const char* error = nullptr) {
        window.ExpectConfirmation(Answer::Ok);
        ExpectError(error, "");
        window.download.DownloadButton_Click();
    }
    void ExpectError(const char* error, const char* title) {
        if (error != nullptr) {
            window.platform.dialogs.Expect({error, title, Buttons::Ok, Icon::Critical}, Answer::Ok);
        }
    }
    // Something happens while events run behind the 1000th character.
    void DownloadWith(const std::function<void()>& happen) {
        window.platform.onDoEvents = [happen, turn = 0]() mutable {
            if (++turn == 1000) {
                happen();
            }
        };
        Download();
    }
    bool WasPaintedToTheEnd() const {
        return window.Message.painted.back() == TransmittingText(100);
    }
};

TEST_F(TransferTest, DoesNotStartWithoutConsentOrPort) {
    window.ExpectWarning(Answer::Cancel);
    window.upload.Retrieve_Click();
    window.ExpectConfirmation(Answer::Cancel);
    window.download.Transmit_Click();
    EXPECT_FALSE(serial.PortOpen());

    serial.openError = "in use";
    Upload("in use");
    Download("in use");
    EXPECT_EQ(window.log, Events{DownloadStarted});
    EXPECT_EQ(window.Message.Caption(), "");
    EXPECT_EQ(window.TicketList.ListCount(), 2);
    EXPECT_EQ(serial.sent, "");
}

TEST_F(TransferTest, UploadTellsWhereItIs) {
    MarkedText ticket;
    ticket.Append(u"ticket", {});
    window.RichText.SetContent(ticket);
    Upload();
    EXPECT_TRUE(window.TicketList.HasFocus());
    EXPECT_TRUE(window.RichText.HasText());
    const std::string& image = TwoTickets();
    Captions captions = {window.Message.Caption()};
    window.Message.SetVisible(false);
    for (const std::string& chunk :
         {"#" + image.substr(0, 81), image.substr(81, 7924), image.substr(8005, 1)}) {
        serial.Arrive(chunk);
        captions.push_back(window.Message.Caption());
    }
    EXPECT_EQ(captions, (Captions{"Start TICKET BUFFER TRANSMISSION in Varno now! (parameter 77)",
                                  "Receiving ticket buffer from Varno ... 0%",
                                  "Receiving ticket buffer from Varno ... 1%",
                                  "Receiving ticket buffer from Varno ... 99%"}));
    EXPECT_TRUE(window.Message.Visible());
    EXPECT_FALSE(window.Timer1.Enabled());
    EXPECT_EQ(window.TicketList.ListCount(), 0);
    EXPECT_FALSE(window.RichText.HasText());

    serial.Arrive(image.substr(8006) + "\r\n");
    EXPECT_EQ(window.log, (Events{UploadStarted, ImageBegins, TransferEnded, UploadEnded}));
    EXPECT_EQ(window.Message.Caption(), "");
    EXPECT_EQ(window.block.TicketBuffer, image);
    EXPECT_EQ(window.TicketList.ListCount(), 2);
    EXPECT_FALSE(serial.PortOpen());
}

// The ":" of an upload that was aborted is not the next one's.
TEST_F(TransferTest, AnAbortedUploadIsForgotten) {
    Upload();
    serial.Arrive(TwoTickets());
    window.transfer.Abort_Click();
    window.upload.Retrieve_Click();
    serial.Arrive("\r");
    EXPECT_TRUE(serial.PortOpen());
}

TEST_F(TransferTest, DownloadSendsImageAndFillUnderItsProgress) {
    window.Message.SetVisible(false);
    Download();
    EXPECT_TRUE(serial.sent == TwoTickets() + Fill());
    Captions texts;
    for (int percent = 1; percent <= 100; ++percent) {
        texts.push_back("Transmitting ticket block to Varno ... " + std::to_string(percent) + "%");
    }
    EXPECT_EQ(window.Message.painted, texts);
    EXPECT_TRUE(window.Message.Visible());
    EXPECT_EQ(window.Message.Caption(), "");
    EXPECT_TRUE(window.TicketList.HasFocus());
    EXPECT_EQ(window.log, (Events{DownloadStarted, TransferEnded}));
    EXPECT_FALSE(serial.PortOpen());
}

TEST_F(TransferTest, DownloadSendsItsBlockWhateverHappensMeanwhile) {
    const std::pair<const char*, std::function<void()>> happenings[] = {
        {"the block changes", [this] { window.block.TicketBuffer = ":other"; }},
        {"characters arrive", [this] { serial.Arrive(TwoTickets() + "\r"); }},
        {"other transfers find the port open",
         [this] {
             Download("already open");
             Upload("already open");
         }},
        {"a new download after Abort",
         [this] {
             window.transfer.Abort_Click();
             serial.sent.clear();
             Download();
         }},
    };
    for (const auto& [name, happen] : happenings) {
        SCOPED_TRACE(name);
        window.Load(TwoTickets());
        serial.sent.clear();
        DownloadWith(happen);
        EXPECT_TRUE(serial.sent == TwoTickets() + Fill());
        EXPECT_EQ(window.TicketList.ListCount(), 2);
        EXPECT_FALSE(serial.PortOpen());
    }
}

TEST_F(TransferTest, AbortAndClosingEndADownloadAtOnce) {
    DownloadWith([this] { window.transfer.Form_KeyPress(KeyEscape); });
    EXPECT_TRUE(WasPaintedToTheEnd());
    EXPECT_EQ(serial.sent.size(), 1000U);

    DownloadWith([this] { window.transfer.Stop(); });
    EXPECT_FALSE(WasPaintedToTheEnd());
    EXPECT_EQ(serial.sent.size(), 2000U);
    EXPECT_EQ(window.log, (Events{DownloadStarted, TransferEnded, TransferEnded, DownloadStarted,
                                  TransferEnded}));
    EXPECT_EQ(window.Message.Caption(), "");
}

TEST_F(TransferTest, FailureLeavesNoHoleInADownload) {
    window.platform.onDoEvents = [this, turn = 0]() mutable { serial.broken = ++turn == 1000; };
    Download();
    EXPECT_EQ(serial.sent.size(), 1000U);
    EXPECT_TRUE(WasPaintedToTheEnd());
}

TEST_F(TransferTest, DownloadLeavesAnUploadAloneThatBeganAfterAbort) {
    const auto uploadAt = [this](int turn) {
        return [this, turn, now = 0]() mutable {
            if (++now == turn) {
                window.transfer.Abort_Click();
                Upload();
            }
        };
    };
    window.platform.onDoEvents = uploadAt(1000);
    Download();
    EXPECT_EQ(serial.sent.size(), 1000U);
    window.transfer.Abort_Click();
    serial.onWaitForRoom = uploadAt(8007 + 5);
    Download();
    EXPECT_EQ(serial.sent.size(), 1000U + 8007 + 2 * 4);
    EXPECT_TRUE(window.Message.Caption().starts_with("Start TICKET BUFFER TRANSMISSION"));
    serial.Arrive(TwoTickets() + "\r");
    EXPECT_EQ(window.log.back(), UploadEnded);
}

TEST_F(TransferTest, PromptBlinks) {
    Upload();
    std::vector<std::pair<bool, int>> ticks;
    for (int tick = 0; tick < 5; ++tick) {
        window.transfer.Form_KeyPress(tick == 3 ? 27 : 'a');  // only Esc aborts
        window.Timer1.Tick();
        ticks.emplace_back(window.Message.Visible(), window.Timer1.interval);
    }
    EXPECT_EQ(ticks, (std::vector<std::pair<bool, int>>{
                         {false, 500}, {true, 1500}, {false, 500}, {false, 500}, {false, 500}}));
}

}  // namespace
}  // namespace varno
