#include <gtest/gtest.h>

#include "link/progress.h"
#include "tests/link/fake_serial.h"
#include "tests/link/link_window.h"

namespace varno {
namespace {

struct DownloadRun {
    FakeSerial serial;
    LinkWindow window{serial};

    DownloadRun() { window.Load(TwoTickets()); }

    void Start(const char* expectedError = nullptr) {
        window.ExpectConfirmation(Answer::Ok);
        if (expectedError != nullptr) {
            window.ExpectError(expectedError, "");
        }
        window.download.DownloadButton_Click();
    }
    // Something happens while events run behind the 1000th character.
    void StartWith(void (*happen)(DownloadRun&)) {
        window.platform.onDoEvents = [this, happen, turn = 0]() mutable {
            if (++turn == 1000) {
                happen(*this);
            }
        };
        Start();
    }
};

TEST(Download, SendsAnyImageAndTheFill) {
    for (const std::string& image : {TwoTickets(), std::string(), std::string(8100, '5')}) {
        SCOPED_TRACE(image.size());
        DownloadRun run;
        run.window.block.TicketBuffer = image;
        run.window.Message.SetVisible(false);
        run.Start();
        EXPECT_EQ(run.serial.sent, image + Fill());
        Entries texts;
        for (int percent = 1; percent <= ProgressPercent(image.size()); ++percent) {
            texts.push_back(TransmittingText(percent));
        }
        EXPECT_EQ(run.window.Message.painted, texts);
        EXPECT_EQ(run.window.Message.Visible(), !texts.empty());
        EXPECT_EQ(run.window.Message.Caption(), "");
        EXPECT_TRUE(run.window.TicketList.HasFocus());
        EXPECT_EQ(run.window.log, (Entries{"download started", "transfer ended"}));
        EXPECT_FALSE(run.serial.PortOpen());
    }
}

TEST(Download, DoesNotStartWithoutConsentOrPort) {
    DownloadRun run;
    run.window.ExpectConfirmation(Answer::Cancel);
    run.window.download.Transmit_Click();
    EXPECT_EQ(run.window.log, Entries{});

    run.serial.openError = "not there";
    run.Start("not there");
    EXPECT_EQ(run.window.log, Entries{"download started"});
    EXPECT_EQ(run.serial.sent, "");
}

TEST(Download, SendsItsBlockWhateverHappensMeanwhile) {
    const std::pair<const char*, void (*)(DownloadRun&)> happenings[] = {
        {"the block changes", [](DownloadRun& run) { run.window.block.TicketBuffer = ":other"; }},
        {"characters arrive", [](DownloadRun& run) { run.serial.Arrive(TwoTickets() + "\r"); }},
        {"other transfers find the port open",
         [](DownloadRun& run) {
             run.Start("already open");
             run.window.ExpectWarning(Answer::Ok);
             run.window.ExpectError("already open", "Error");
             run.window.upload.Retrieve_Click();
         }},
        {"a new download after Abort",
         [](DownloadRun& run) {
             run.window.transfer.Abort_Click();
             run.serial.sent.clear();
             run.Start();
         }},
    };
    for (const auto& [name, happen] : happenings) {
        SCOPED_TRACE(name);
        DownloadRun run;
        run.StartWith(happen);
        EXPECT_EQ(run.serial.sent, TwoTickets() + Fill());
        EXPECT_EQ(run.window.TicketList.ListCount(), 2);
        EXPECT_FALSE(run.serial.PortOpen());
    }
}

TEST(Download, LeavesAnUploadAloneThatBeganAfterAbort) {
    DownloadRun run;
    run.StartWith([](DownloadRun& aborted) {
        aborted.window.transfer.Abort_Click();
        aborted.window.ExpectWarning(Answer::Ok);
        aborted.window.upload.Retrieve_Click();
    });
    EXPECT_EQ(run.serial.sent.size(), 1000U);
    EXPECT_TRUE(run.window.Message.Caption().starts_with("Start TICKET BUFFER TRANSMISSION"));
    run.serial.Arrive(TwoTickets() + "\r");
    EXPECT_EQ(run.window.log.back(), "upload ended");
}

}  // namespace
}  // namespace varno
