#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "link/progress.h"
#include "tests/link/fake_serial.h"
#include "tests/link/link_window.h"

namespace varno {
namespace {

constexpr const char* Prompt = "Start TICKET BUFFER TRANSMISSION in Varno now! (parameter 77)";

struct UploadTest : testing::Test {
    FakeSerial serial;
    LinkWindow window{serial};

    void Start() {
        if (window.TicketList.ListCount() > 0) {
            window.ExpectWarning(Answer::Ok);
        }
        window.upload.Retrieve_Click();
    }
    void ExpectIdle() {
        EXPECT_FALSE(serial.PortOpen());
        EXPECT_EQ(window.Message.Caption(), "");
        EXPECT_EQ(window.log.back(), "upload ended");
    }
};

TEST_F(UploadTest, StartsOnceThePortIsOpen) {
    window.upload.UploadButton_Click();
    EXPECT_TRUE(window.TicketList.HasFocus());
    EXPECT_TRUE(serial.PortOpen());
    EXPECT_EQ(window.Message.Caption(), Prompt);
    EXPECT_EQ(window.log, Entries{"upload started"});
}

TEST_F(UploadTest, DoesNotStartWithoutConsentOrPort) {
    window.Load(TwoTickets());
    window.ExpectWarning(Answer::Cancel);
    window.upload.Retrieve_Click();
    EXPECT_EQ(serial.openings, 0);

    serial.openError = "in use";
    window.ExpectWarning(Answer::Ok);
    window.ExpectError("in use", "Error");
    window.upload.Retrieve_Click();

    EXPECT_EQ(window.log, Entries{});
    EXPECT_EQ(window.Message.Caption(), "");
    EXPECT_EQ(window.TicketList.Rows(), (Entries{"212 P", "640"}));
}

std::vector<std::string> OneByOne(const std::string& text) {
    std::vector<std::string> chunks;
    for (const char character : text) {
        chunks.emplace_back(1, character);
    }
    return chunks;
}

std::string LowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'A' && c <= 'F' ? static_cast<char>(c + 32) : c; });
    return text;
}

struct Arrival {
    const char* name;
    std::string loaded;  // the block before
    std::vector<std::string> chunks;
    std::string caption;  // afterwards; empty: the upload has ended
    std::string image;
    Entries rows = {"212 P", "640"};
};

TEST(UploadArrivals, EndInTheRightStateWhateverTheChunks) {
    const std::string& image = TwoTickets();
    const std::string half = image.substr(0, 4000);
    const Arrival arrivals[] = {
        {"one by one", "", OneByOne(image + "\r"), "", image},
        {"all at once", "", {image + "\r\n"}, "", image},
        {"line end apart", "", {image, "\r\n"}, "", image},
        {"the end in one chunk with the line end",
         "",
         {half, image.substr(4000) + "\r\n"},
         "",
         image},
        {"any character ends it", "", {image, "x"}, "", image},
        {"nothing behind", "", {half, image.substr(4000)}, ReceivingText(49), image, {}},
        {"nothing behind 8007 at once", "", {image}, ReceivingText(0), image, {}},
        {"noise in the chunk", "", {"\r\n#" + image + "\r\n"}, "", image},
        {"noise apart", "", {"noise", image, "\r"}, "", image},
        {"noise only", "old", {"noise", "more"}, ReceivingText(0), "oldnoisemore", {}},
        {"noise on a loaded block", image, {"noise"}, ReceivingText(100), image},
        {"noise that fills a short buffer",
         half,
         {std::string(5000, '?'), "?"},
         ReceivingText(112),
         half + std::string(5000, '?'),
         {}},
        {"noise on a loaded block, then an image", image, {"noise", image, "\n"}, "", image},
        {"restart in the middle", "", {half, image, "\n"}, "", image},
        {"restart behind the colon", "", {":", image, "\n"}, "", image},
        {"trailing text", "", {image + "\r\nOK\r\n: ready"}, "", image},
        {"lower case", "", {LowerCase(image), "\r"}, "", LowerCase(image)},
    };
    for (const Arrival& arrival : arrivals) {
        SCOPED_TRACE(arrival.name);
        FakeSerial serial;
        LinkWindow window(serial);
        window.Load(arrival.loaded);
        if (arrival.loaded == image) {
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
        EXPECT_EQ(window.TicketList.Rows(), arrival.rows);
    }
}

TEST(UploadArrivals, DoNotDependOnWhereChunksEnd) {
    const std::string line = "ab" + TwoTickets() + "\r\n";
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        FakeSerial serial;
        LinkWindow window(serial);
        window.upload.Retrieve_Click();
        std::mt19937 random(seed);
        // Short chunks around the colon and the end, so that every border there is met.
        for (std::size_t at = 0; at < line.size();) {
            const std::size_t length = 1 + random() % (at < 8 || at > 7990 ? 4 : 2000);
            serial.Arrive(line.substr(at, length));
            at += length;
        }
        EXPECT_EQ(window.block.TicketBuffer, TwoTickets());
        EXPECT_EQ(window.TicketList.ListCount(), 2);
        EXPECT_FALSE(serial.PortOpen());
    }
}

TEST_F(UploadTest, EmptiesListAndEditorWhenTheImageBegins) {
    window.Load(TwoTickets());
    MarkedText ticket;
    ticket.Append(u"ticket", {});
    window.RichText.SetContent(ticket);
    Start();
    serial.Arrive("no");
    EXPECT_EQ(window.TicketList.ListCount(), 2);
    serial.Arrive(":8000");
    EXPECT_EQ(window.TicketList.ListCount(), 0);
    EXPECT_FALSE(window.RichText.HasText());
    EXPECT_EQ(window.block.TicketBuffer, ":8000");
    EXPECT_EQ(window.log, (Entries{"upload started", "image begins"}));

    window.RichText.Undo();
    EXPECT_TRUE(window.RichText.HasText());
}

TEST_F(UploadTest, ProgressIsSteadyAndTellsWhatCameBefore) {
    Start();
    window.Timer1.Tick();
    window.Message.SetVisible(false);
    std::vector<std::string> captions;
    for (const std::string& chunk :
         {TwoTickets().substr(0, 81), TwoTickets().substr(81, 7925), TwoTickets().substr(8006)}) {
        serial.Arrive(chunk);
        captions.push_back(window.Message.Caption());
    }
    EXPECT_EQ(captions, (Entries{ReceivingText(0), ReceivingText(1), ReceivingText(99)}));
    EXPECT_TRUE(window.Message.Visible());
    EXPECT_FALSE(window.Timer1.Enabled());
    serial.Arrive("\r");
    ExpectIdle();
    EXPECT_EQ(window.log,
              (Entries{"upload started", "image begins", "transfer ended", "upload ended"}));
}

TEST(Progress, RoundsDown) {
    const std::pair<std::size_t, int> table[] = {{0, 0},      {80, 0},     {81, 1},     {4003, 49},
                                                 {4004, 50},  {8006, 99},  {8007, 100}, {8087, 100},
                                                 {8088, 101}, {16014, 200}};
    for (const auto& [characters, percent] : table) {
        EXPECT_EQ(ProgressPercent(characters), percent) << characters;
    }
    EXPECT_EQ(ReceivingText(7), "Receiving ticket buffer from Varno ... 7%");
    EXPECT_EQ(TransmittingText(100), "Transmitting ticket block to Varno ... 100%");
}

TEST_F(UploadTest, AbortKeepsWhatCame) {
    Start();
    serial.Arrive(":08D4");
    window.transfer.Form_KeyPress(U'a');
    EXPECT_TRUE(serial.PortOpen());
    window.transfer.Form_KeyPress(27);
    EXPECT_FALSE(serial.PortOpen());
    EXPECT_EQ(window.Message.Caption(), "");
    EXPECT_EQ(window.block.TicketBuffer, ":08D4");

    // The next upload must not take the old colon for its own.
    window.block.TicketBuffer = TwoTickets();
    Start();
    serial.Arrive("noise");
    EXPECT_TRUE(serial.PortOpen());
}

TEST_F(UploadTest, AbortIsHarmlessWhileIdle) {
    window.Load(TwoTickets());
    window.transfer.Abort_Click();
    EXPECT_EQ(window.log, Entries{"transfer ended"});
    EXPECT_EQ(window.block.TicketBuffer, TwoTickets());
}

TEST_F(UploadTest, PromptBlinks) {
    Start();
    std::vector<std::pair<bool, int>> ticks;
    for (int tick = 0; tick < 3; ++tick) {
        window.Timer1.Tick();
        ticks.emplace_back(window.Message.Visible(), window.Timer1.interval);
    }
    window.transfer.Abort_Click();
    window.Timer1.Tick();
    ticks.emplace_back(window.Message.Visible(), window.Timer1.interval);
    window.Timer1.Tick();
    ticks.emplace_back(window.Message.Visible(), window.Timer1.interval);
    EXPECT_EQ(ticks, (std::vector<std::pair<bool, int>>{
                         {false, 500}, {true, 1500}, {false, 500}, {false, 500}, {false, 500}}));
    EXPECT_TRUE(window.Timer1.Enabled());
}

}  // namespace
}  // namespace varno
