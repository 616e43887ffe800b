#include "simulator/indicator.h"

#include <gtest/gtest.h>

#include <fstream>

#include "block/image.h"
#include "simulator/panel.h"
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

struct IndicatorTest : testing::Test {
    ScratchFolder folder;
    Indicator indicator{Image, {folder.Path() + "/control", folder.Path() + "/print"}};
    std::vector<std::string> switched;
    Panel panel{indicator,
                {[this](int baud) { switched.push_back("speed " + std::to_string(baud)); },
                 [this](int count) { switched.push_back("cut " + std::to_string(count)); },
                 [this](int count) { switched.push_back("stall " + std::to_string(count)); },
                 [this] { switched.emplace_back("resume"); }}};

    std::string Run(const char* command) {
        panel.Run(command);
        return indicator.TakeScreen();
    }
};

TEST_F(IndicatorTest, CapturesAnImageOrSaysWhatIsWrong) {
    const std::string fill(362, 'F');
    const std::string other = NewTicketBuffer();
    std::string badDigit = Image;
    badDigit[99] = 'x';
    std::string badCrc = Image;
    badCrc[3] = '9';
    std::string badZeros = Image;
    badZeros[8002] = '1';
    struct {
        const char* name;
        std::string line;
        const char* screen;
        bool taken;
    } const table[] = {
        {"image and fill", other + fill, "captured, 0 tickets\n", true},
        {"noise before", "#\r\n" + other + fill, "captured, 0 tickets\n", true},
        {"restart", other.substr(0, 500) + other + fill, "captured, 0 tickets\n", true},
        {"nothing", "", "", false},
        {"cut", other.substr(0, 4000), "capturing failed: only 4000 of 8007 characters came\n",
         false},
        {"no digit", badDigit + fill,
         "capturing failed: character 100 is not a hexadecimal digit\n", false},
        {"no zeros", badZeros,
         "capturing failed: \"01\" stands behind the memory in place of \"00\"\n", false},
        {"checksum", badCrc + fill, nullptr, false},
        {"text behind", other + fill + "hi", "captured, 0 tickets\nreceived 2 characters: hi\n",
         true},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.name);
        Indicator fresh(Image, {});
        fresh.StartCapture();
        EXPECT_EQ(fresh.TakeScreen(), "capturing\n");
        fresh.Receive(row.line.substr(0, 3));
        fresh.Receive(row.line.substr(std::min<std::size_t>(3, row.line.size())));
        fresh.Silence();
        const std::string screen = fresh.TakeScreen();
        if (row.screen != nullptr) {
            EXPECT_EQ(screen, row.screen);
        } else {
            EXPECT_TRUE(screen.starts_with("capturing failed: the checksum is "));
        }
        EXPECT_EQ(fresh.Memory(), row.taken ? other : Image);
    }
}

TEST_F(IndicatorTest, ShowsWhatItDoesNotCapture) {
    indicator.Receive("A\r");
    indicator.Receive("B");
    EXPECT_EQ(indicator.TakeScreen(), "");
    indicator.Silence();
    EXPECT_EQ(indicator.TakeScreen(), "received 3 characters: A<13>B\n");
}

TEST_F(IndicatorTest, TransmitsItsMemory) {
    EXPECT_EQ(Run("77"), "transmitting 2 tickets\n");
    EXPECT_EQ(indicator.TakeTransmission(), Image + "\r\n");
    EXPECT_EQ(indicator.TakeTransmission(), "");
    Run(" NOISE ");
    const std::string noise = indicator.TakeTransmission();
    EXPECT_EQ(noise.size(), static_cast<std::size_t>(NoiseLength));
    EXPECT_EQ(noise.find(':'), std::string::npos);
}

TEST_F(IndicatorTest, PrintsCodesByTheirComment) {
    std::ofstream(folder.Path() + "/control") << "005 Bold on\r\n";
    EXPECT_EQ(Run("p"), "-- Print: ticket 212 --\nA<BOLD ON>\n<P007>\u00E4<A27>\n--\n");
    EXPECT_EQ(Run("O"), "no ticket is bound to Out\n");
    EXPECT_EQ(Run("list"), "212 Print\n640\n2 tickets\n");
}

TEST_F(IndicatorTest, PanelPassesSwitchesOn) {
    for (const char* command : {"speed 9600", "cut 0", "STALL  17", "stall"}) {
        EXPECT_EQ(Run(command), "");
    }
    EXPECT_EQ(switched, (std::vector<std::string>{"speed 9600", "cut 0", "stall 17", "resume"}));
    for (const char* command : {"79", "speed", "speed x", "speed -1", "cut", "save", "list all",
                                "stall 99999999999", "ps"}) {
        EXPECT_TRUE(Run(command).starts_with("not understood: ")) << command;
    }
    EXPECT_EQ(Run(""), "");
    EXPECT_NE(Run("help").find("save FILE"), std::string::npos);
    EXPECT_FALSE(panel.HasQuit());
    Run("quit");
    EXPECT_TRUE(panel.HasQuit());
}

TEST_F(IndicatorTest, SavesABlockFile) {
    const std::string path = folder.Path() + "/My block.VRB";
    EXPECT_EQ(Run(("save " + path).c_str()), "saved as " + path + "\n");
    std::ifstream file(path, std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), Image + "\r\n");
    EXPECT_FALSE(Run("save /nowhere/x.VRB").starts_with("saved"));
}

}  // namespace
}  // namespace varno
