#include <gtest/gtest.h>

#include <algorithm>

#include "link/progress.h"
#include "tests/link/fake_serial.h"
#include "tests/link/link_window.h"

namespace varno {
namespace {

struct Arrival {
    const char* name;
    std::string loaded;  // the block before
    std::vector<std::string> chunks;
    std::string caption;  // afterwards; empty: the upload has ended
    std::string image;
    int rows = 2;
};

struct UploadTest : testing::Test {
    FakeSerial serial;
    LinkWindow window{serial};

    void Expect(const Arrival& arrival) {
        SCOPED_TRACE(arrival.name);
        window.Load(arrival.loaded);
        if (arrival.loaded == TwoTickets()) {
            window.ExpectWarning(Answer::Ok);
        } else {
            window.TicketList.Clear();
        }
        window.upload.Retrieve_Click();
        for (const std::string& chunk : arrival.chunks) {
            serial.Arrive(chunk);
        }
        EXPECT_EQ(window.Message.Caption(), arrival.caption);
        EXPECT_EQ(serial.PortOpen(), !arrival.caption.empty());
        EXPECT_EQ(window.block.TicketBuffer, arrival.image);
        EXPECT_EQ(window.TicketList.ListCount(), arrival.rows);
        window.transfer.Abort_Click();
    }
};

TEST_F(UploadTest, DoesNotStartWithoutConsentOrPort) {
    window.Load(TwoTickets());
    window.ExpectWarning(Answer::Cancel);
    window.upload.Retrieve_Click();
    EXPECT_FALSE(serial.PortOpen());

    serial.openError = "in use";
    window.ExpectWarning(Answer::Ok);
    window.ExpectError("in use", "Error");
    window.upload.Retrieve_Click();
    EXPECT_EQ(window.log, Entries{});
    EXPECT_EQ(window.Message.Caption(), "");
    EXPECT_EQ(window.TicketList.ListCount(), 2);
}

// One after the other: the ":" of an upload that was aborted is not the next one's.
TEST_F(UploadTest, EndsInTheRightStateWhateverTheChunks) {
    const std::string& image = TwoTickets();
    const std::string half = image.substr(0, 4000);
    const std::string rest = image.substr(4000);
    const std::string junk(5000, '?');
    std::string lower = image;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' ? static_cast<char>(c + 32) : c; });
    std::vector<std::string> oneByOne;
    for (const char character : image + "\r") {
        oneByOne.emplace_back(1, character);
    }
    const Arrival arrivals[] = {
        {"one by one", "", oneByOne, "", image},
        {"any character ends it", "", {image, "x"}, "", image},
        {"nothing behind", "", {half, rest}, ReceivingText(49), image, 0},
        {"nothing behind 8007 at once", "", {image}, ReceivingText(0), image, 0},
        {"noise on a loaded block", image, {"noise"}, ReceivingText(100), image},
        {"noise apart", "", {"noise", image, "\r"}, "", image},
        {"noise only", "old", {"noise", "more"}, ReceivingText(0), "oldnoisemore", 0},
        {"noise on a short block", half, {junk, "?"}, ReceivingText(112), half + junk, 0},
        {"noise on a loaded block, then an image", image, {"noise", image, "\n"}, "", image},
        {"restart in the middle", "", {half, image, "\n"}, "", image},
        {"restart behind the colon", "", {":", image, "\n"}, "", image},
        {"trailing text", "", {image + "\r\nOK\r\n: ready"}, "", image},
        {"lower case", "", {lower, "\r"}, "", lower},
    };
    for (const Arrival& arrival : arrivals) {
        Expect(arrival);
    }
    // Every border around the ":" and around the end, and some between.
    const std::string line = "ab" + image + "\r\n";
    for (std::size_t at = 0; at <= line.size(); at += at < 8 || at > 8000 ? 1 : 333) {
        Expect({"two chunks", "", {line.substr(0, at), line.substr(at)}, "", image});
    }
}

TEST_F(UploadTest, TellsWhereItIs) {
    window.Load(TwoTickets());
    MarkedText ticket;
    ticket.Append(u"ticket", {});
    window.RichText.SetContent(ticket);
    window.ExpectWarning(Answer::Ok);
    window.upload.UploadButton_Click();
    EXPECT_TRUE(window.TicketList.HasFocus());
    EXPECT_EQ(window.Message.Caption(),
              "Start TICKET BUFFER TRANSMISSION in Varno now! (parameter 77)");
    EXPECT_TRUE(window.RichText.HasText());

    window.Message.SetVisible(false);
    Entries captions;
    for (const std::string& chunk :
         {TwoTickets().substr(0, 81), TwoTickets().substr(81, 7925), TwoTickets().substr(8006)}) {
        serial.Arrive(chunk);
        captions.push_back(window.Message.Caption());
    }
    EXPECT_EQ(captions, (Entries{ReceivingText(0), ReceivingText(1), ReceivingText(99)}));
    EXPECT_TRUE(window.Message.Visible());
    EXPECT_FALSE(window.Timer1.Enabled());
    EXPECT_EQ(window.TicketList.ListCount(), 0);
    EXPECT_FALSE(window.RichText.HasText());
    serial.Arrive("\r");
    EXPECT_EQ(window.log,
              (Entries{"upload started", "image begins", "transfer ended", "upload ended"}));
}

TEST(Progress, RoundsDown) {
    const std::pair<std::size_t, int> table[] = {{80, 0},    {81, 1},     {4003, 49},
                                                 {8006, 99}, {8007, 100}, {16014, 200}};
    for (const auto& [characters, percent] : table) {
        EXPECT_EQ(ProgressPercent(characters), percent) << characters;
    }
    EXPECT_EQ(ReceivingText(7), "Receiving ticket buffer from Varno ... 7%");
    EXPECT_EQ(TransmittingText(100), "Transmitting ticket block to Varno ... 100%");
}

TEST_F(UploadTest, PromptBlinks) {
    window.upload.Retrieve_Click();
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
