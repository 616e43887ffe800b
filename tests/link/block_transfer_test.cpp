#include "link/block_transfer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <utility>
#include <vector>

#include "block/image.h"
#include "link/port_session.h"
#include "link/spoken_status.h"
#include "tests/window/scripted_line.h"

namespace varno {
namespace {

const std::string Image = NewTicketBuffer();

struct Arrival {
    const char* name;
    std::string before;  // the block that was there
    std::vector<std::string> chunks;
    int percent;  // told with the last chunk
    bool complete;
    std::string image;
};

void Expect(const Arrival& arrival) {
    SCOPED_TRACE(arrival.name);
    IncomingBlock incoming;
    std::string image = arrival.before;
    IncomingBlock::Step step{};
    for (const std::string& chunk : arrival.chunks) {
        EXPECT_FALSE(step.complete);
        step = incoming.Take(chunk, image);
    }
    EXPECT_EQ(step.percent, arrival.percent);
    EXPECT_EQ(step.complete, arrival.complete);
    EXPECT_EQ(image.substr(0, step.complete ? ImageLength : std::string::npos), arrival.image);
}

TEST(BlockTransfer, CollectsTheImageWhateverTheChunks) {
    const std::string half = Image.substr(0, 4000);
    const std::string rest = Image.substr(4000);
    const std::string junk(5000, '?');
    std::string lower = Image;
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' ? static_cast<char>(c + 32) : c; });
    std::vector<std::string> oneByOne;
    for (const char character : Image + "\r") {
        oneByOne.emplace_back(1, character);
    }
    const Arrival arrivals[] = {
        {"one by one", "", oneByOne, 100, true, Image},
        {"any character ends it", "", {Image, "x"}, 100, true, Image},
        {"nothing behind", "", {half, rest}, 49, false, Image},
        {"nothing behind 8007 at once", "", {Image}, 0, false, Image},
        {"noise on a loaded block", Image, {"noise"}, 100, false, Image},
        {"noise apart", "", {"noise", Image, "\r"}, 100, true, Image},
        {"noise only", "old", {"noise", "more"}, 0, false, "oldnoisemore"},
        {"noise on a short block", half, {junk, "?"}, 112, false, half + junk},
        {"noise on a loaded block, then an image", Image, {"noise", Image, "\n"}, 100, true, Image},
        {"restart in the middle", "", {half, Image, "\n"}, 100, true, Image},
        {"restart behind the colon", "", {":", Image, "\n"}, 100, true, Image},
        {"trailing text", "", {Image + "\r\nOK\r\n: ready"}, 0, true, Image},
        {"lower case", "", {lower, "\r"}, 100, true, lower},
    };
    for (const Arrival& arrival : arrivals) {
        Expect(arrival);
    }
    // Every border around the ":" and around the end, and some between.
    const std::string line = "ab" + Image + "\r\n";
    for (std::size_t at = 0; at < line.size() - 1; at += at < 8 || at > 8000 ? 1 : 333) {
        const int percent = ProgressPercent(at < 3 ? 0 : at - 2);
        Expect({"two chunks", "", {line.substr(0, at), line.substr(at)}, percent, true, Image});
    }
}

TEST(BlockTransfer, SendsAnyImageAndTheFill) {
    for (const std::string& image : {Image, std::string(), std::string(8100, '5')}) {
        std::string sent;
        int percent = 0;
        for (OutgoingBlock block(image); !block.AtEnd(); block.Next()) {
            EXPECT_EQ(block.InImage(), sent.size() < image.size());
            sent += block.Piece();
            percent = ProgressPercent(std::min(sent.size(), image.size()));
            EXPECT_EQ(block.Percent(), percent);
        }
        EXPECT_EQ(sent, image + std::string(362, 'F'));
    }
}

// A line that recovers would get a block with a gap; what was wrong is said at the end.
TEST(BlockTransfer, SendsNothingBehindAGap) {
    for (const bool fails : {true, false}) {
        ScriptedLine* there = nullptr;
        ScriptedLine line(nullptr, there);
        EXPECT_FALSE(line.OpenPort());
        PortSession session(line);
        int events = 0;
        int percent = 0;
        SendBlock(Image, session,
                  {.ShowProgress = [&](int now) { percent = now; },
                   .DoEvents =
                       [&] {
                           ++events;
                           line.broken = fails && events >= 1000 && events < 1010;
                           if (!fails && events == 1000) {
                               session.End();
                           }
                       }});
        EXPECT_EQ(line.sent, Image.substr(0, 1000));
        EXPECT_EQ(session.Failure(), fails ? Error("cannot send") : Error());
        EXPECT_EQ(percent, fails ? 100 : 12);
    }
}

TEST(BlockTransfer, TellsWholePercents) {
    const std::pair<std::size_t, int> table[] = {{80, 0},    {81, 1},     {4003, 49},
                                                 {8006, 99}, {8007, 100}, {16014, 200}};
    for (const auto& [characters, percent] : table) {
        EXPECT_EQ(ProgressPercent(characters), percent) << characters;
    }
}

TEST(SpokenStatus, IsSpokenOnceInTenPercent) {
    SpokenStatus spoken;
    std::string said;
    const auto show = [&](const std::string& caption, bool isPortOpen = true) {
        const std::string now = spoken.Of(caption, isPortOpen);
        said += now.empty() ? "" : now + "|";
    };
    show("");
    show(StartTransmission);
    for (int percent = 0; percent <= 103; percent += 3) {
        show(ReceivingText(percent));
    }
    show("");
    show(TransmittingText(29), false);  // by the loop of a download that was stopped
    show("");
    std::string expected = std::string(StartTransmission) + "|";
    for (const int percent : {0, 12, 21, 30, 42, 51, 60, 72, 81, 90, 102}) {
        expected += ReceivingText(percent) + "|";
    }
    EXPECT_EQ(said, expected + "The transfer has ended.|");
}

}  // namespace
}  // namespace varno
