#include "simulator/indicator.h"

#include <gtest/gtest.h>

#include <cstring>
#include <fstream>

#include "block/image.h"
#include "platform/files.h"
#include "simulator/line.h"
#include "simulator/panel.h"
#include "simulator/port_offer.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

// 212: "A", a control code, CR LF, a print code, "ä", ESC; bound to Print. 640: empty.
const std::string Image = SealTicketBuffer(
    "08D40041"
    "2005000D000A4007"
    "00E4001B1000"
    "0A801000"
    "800000D4000000000000");

TEST(Indicator, CapturesAnImageOrSaysWhatIsWrong) {
    const std::string other = NewTicketBuffer();
    const std::string fill(362, 'F');
    const std::string right = other.substr(8003);
    const auto with = [&](std::size_t at, const char* digits) {
        return std::string(other).replace(at, std::strlen(digits), digits) + fill;
    };
    const std::string taken = "captured, 0 tickets\n";
    const std::string failed = "capturing failed: ";
    const struct {
        const char* name;
        std::string line;
        std::string screen;
    } table[] = {
        {"image and fill", other + fill, taken},
        {"noise before", "#\r\n" + other + fill, taken},
        {"restart", other.substr(0, 500) + other + fill, taken},
        {"text behind", other + fill + "A\r", taken + "received 2 characters: A<13>\n"},
        {"nothing", "", ""},
        {"cut", other.substr(0, 4000), failed + "only 4000 of 8007 characters came\n"},
        {"no digit", with(99, "x"), failed + "character 100 is not a hexadecimal digit\n"},
        {"no zeros", with(8002, "1"),
         failed + "\"01\" stands behind the memory in place of \"00\"\n"},
        {"checksum", with(8003, "0001"),
         failed + "the checksum is 0001 and should be " + right + "\n"},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.name);
        Indicator indicator(Image, {});
        indicator.StartCapture();
        EXPECT_EQ(indicator.TakeScreen(), "capturing\n");
        indicator.Receive(row.line.substr(0, 3));
        indicator.Receive(row.line.substr(std::min<std::size_t>(3, row.line.size())));
        indicator.Silence();
        EXPECT_EQ(indicator.TakeScreen(), row.screen);
        EXPECT_EQ(indicator.Memory(), row.screen.starts_with(taken) ? other : Image);
    }
}

TEST(Indicator, ObeysItsPanel) {
    const ScratchFolder folder;
    std::ofstream(folder.Path() + "/control") << "005 Bold on\r\n";
    Indicator indicator(Image, {folder.Path() + "/control", folder.Path() + "/print"});
    Panel panel(indicator, {[&](int baud) { indicator.Say("speed = " + std::to_string(baud)); },
                            [&](int count) { indicator.Say("cut = " + std::to_string(count)); },
                            [&](int count) { indicator.Say("stall = " + std::to_string(count)); },
                            [&] { indicator.Say("resume"); }});
    const std::string block = folder.Path() + "/My block.VRB";
    const std::pair<std::string, std::string> table[] = {
        {"p", "-- Print: ticket 212 --\nA<BOLD ON>\n<P007>\u00E4<A27>\n--\n"},
        {"O", "no ticket is bound to Out\n"},
        {"list", "212 Print\n640\n2 tickets\n"},
        {"save " + block, "saved as " + block + "\n"},
        {"speed 9600", "speed = 9600\n"},
        {"cut 0", "cut = 0\n"},
        {"STALL  17", "stall = 17\n"},
        {"stall", "resume\n"},
        {"", ""},
    };
    for (const auto& [command, screen] : table) {
        panel.Run(command);
        EXPECT_EQ(indicator.TakeScreen(), screen) << command;
    }
    for (const char* command : {"79", "speed -1", "cut", "stall 99999999999", "ps", "list all"}) {
        panel.Run(command);
        EXPECT_TRUE(indicator.TakeScreen().starts_with("not understood: ")) << command;
    }
    std::string saved;
    EXPECT_EQ(ReadFile(block, saved), std::nullopt);
    EXPECT_EQ(saved, Image + "\r\n");
    panel.Run("save /nowhere/x.VRB");
    EXPECT_FALSE(indicator.TakeScreen().starts_with("saved"));
    panel.Run(" NOISE ");
    EXPECT_EQ(indicator.TakeTransmission().find(':'), std::string::npos);
    EXPECT_FALSE(panel.HasQuit());
    panel.Run("quit");
    EXPECT_TRUE(panel.HasQuit());
}

TEST(Line, CarriesAtItsSpeed) {
    Line line;
    line.SetSpeed(10000);  // 1000 characters a second
    const Line::Time start{std::chrono::seconds(1000)};
    line.PutIn(Direction::ToIndicator, "abcdef", start);
    line.StallAfter(3);
    const std::pair<int, const char*> table[] = {{0, ""}, {2, "ab"}, {2, ""}, {5, "c"}, {9, ""}};
    for (const auto& [time, carried] : table) {
        const auto now = start + std::chrono::milliseconds(time);
        EXPECT_EQ(line.TakeOut(Direction::ToIndicator, now), carried) << time;
    }
    line.Resume();  // the time it stood still does not count
    const auto later = start + std::chrono::milliseconds(10);
    EXPECT_EQ(line.TakeOut(Direction::ToIndicator, later), "d");
    EXPECT_FALSE(line.IsFull(Direction::ToIndicator));
    line.PutIn(Direction::ToIndicator, "1234567", later);
    EXPECT_TRUE(line.IsFull(Direction::ToIndicator));
}

TEST(PortOffer, TakesAFreeNumberAndCleansUp) {
    const ScratchFolder folder;
    const auto target = [&](int number) {
        return std::filesystem::read_symlink(folder.Path() + "/COM" + std::to_string(number));
    };
    std::filesystem::create_symlink("/dev/pts/99999", folder.Path() + "/COM200");  // left behind
    std::filesystem::create_symlink("/dev/unplugged", folder.Path() + "/COM201");  // the user's
    {
        PortOffer offers[] = {{folder.Path(), 0}, {folder.Path(), 0}, {folder.Path(), 200}};
        for (PortOffer& offer : offers) {
            offer.Offer("/dev/null");
            EXPECT_EQ(target(offer.Number()), "/dev/null");
        }
        EXPECT_NE(offers[0].Number(), offers[1].Number());
        EXPECT_THROW(PortOffer(folder.Path(), 201).Offer("/dev/null"), std::runtime_error);
    }
    EXPECT_EQ(target(201), "/dev/unplugged");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 1);
}

}  // namespace
}  // namespace varno
