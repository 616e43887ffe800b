#include "simulator/indicator.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <cstring>
#include <fstream>
#include <optional>

#include "block/image.h"
#include "paper/effects_text.h"
#include "paper/text.h"
#include "platform/files.h"
#include "practice/line_text.h"
#include "simulator/line.h"
#include "simulator/panel.h"
#include "simulator/port_offer.h"
#include "simulator/station.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

using namespace std::chrono_literals;

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
        indicator.EndCapture();
        indicator.ShowHeard();
        EXPECT_EQ(indicator.TakeScreen(), row.screen);
        EXPECT_EQ(indicator.Memory(), row.screen.starts_with(taken) ? other : Image);
    }
    Indicator again(Image, {});  // its parameter 78 is started once more in the middle
    again.StartCapture();
    again.Receive(other.substr(0, 500));
    again.StartCapture();
    EXPECT_EQ(again.Display(), "capturing, 500 characters given up");
    again.Receive(other);
    EXPECT_EQ(again.Memory(), other);
    Indicator asleep(Image, {});  // nobody has started parameter 78
    asleep.Receive(other + fill);
    asleep.EndCapture();
    EXPECT_EQ(asleep.Memory(), Image);
}

TEST(Indicator, ObeysItsPanel) {
    const ScratchFolder folder;
    Effects effects;
    ParseEffects("P007 8 \"12480\"\nP8 \"kg\"", effects);
    Indicator indicator(Image, effects);
    Panel panel(
        indicator,
        {[&](int baud) { indicator.Say("speed = " + std::to_string(baud)); },
         [&](Line::Fault fault, int count) {
             const char* const names[] = {"none", "cut", "stall", "damage"};
             indicator.Say(names[static_cast<int>(fault)] + (" = " + std::to_string(count)));
         },
         [&] { indicator.Say("resume"); },
         [&](int count) { indicator.Say("silence = " + std::to_string(count)); }});
    const std::string block = folder.Path() + "/My block.VRB";
    const std::pair<std::string, std::string> table[] = {
        {"p", "-- Print: ticket 212 --\nA[C005]\n   12480\u00E4[A27]\n--\n"},
        {"values", "P007=12480\nP008=kg\n2 print codes\n"},
        {"values p7=99", "changed\n"},
        {"P", "-- Print: ticket 212 --\nA[C005]\n      99\u00E4[A27]\n--\n"},
        {"values 99", "\"99\" gives no print code a value: write P012=9999\n"},
        {"O", "no ticket is bound to Out\n"},
        {"list", "212 Print\n640\n2 tickets\n"},
        {"save " + block, "saved as " + block + "\n"},
        {"speed 9600", "speed = 9600\n"},
        {"cut 0", "cut = 0\n"},
        {"STALL  17", "stall = 17\n"},
        {"damage 4000", "damage = 4000\n"},
        {"stall", "resume\n"},
        {"silence 0", "silence = 0\n"},
        {"", ""},
    };
    for (const auto& [command, screen] : table) {
        panel.Run(command);
        EXPECT_EQ(indicator.TakeScreen(), screen) << command;
    }
    panel.Run("p");
    indicator.TakeScreen();
    EXPECT_EQ(indicator.Display(), "Print: ticket 212");  // and no line of the paper
    for (const char* command : {"79", "speed -1", "cut", "stall 99999999999", "ps", "list all"}) {
        panel.Run(command);
        EXPECT_TRUE(indicator.TakeScreen().starts_with("not understood: ")) << command;
    }
    EXPECT_EQ(PaperText(indicator.TakePaper()),
              "A[C005]\n   12480\u00E4[A27]\n"
              "A[C005]\n      99\u00E4[A27]\n"
              "A[C005]\n      99\u00E4[A27]\n");
    EXPECT_TRUE(indicator.TakePaper().rows.empty());
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
    line.Arm(Line::Fault::Stall, 3);
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

TEST(Line, DamagesOneCharacterOfBothWaysTogether) {
    Line line;
    line.Arm(Line::Fault::Damage, 4);
    const auto carry = [&](Direction direction, const char* characters) {
        line.PutIn(direction, characters, {});
        return line.TakeOut(direction, {});
    };
    EXPECT_EQ(carry(Direction::ToIndicator, "000"), "000");
    EXPECT_EQ(carry(Direction::FromIndicator, "0"), "0");
    EXPECT_EQ(line.Armed(), Line::Fault::Damage);
    EXPECT_EQ(carry(Direction::ToIndicator, "000"), "100");
    EXPECT_EQ(line.Armed(), Line::Fault::None);
    EXPECT_EQ(carry(Direction::ToIndicator, "000"), "000");
}

// The program's end of the cable. It goes as a killed program does, giving nothing back.
struct Opened {
    explicit Opened(const std::string& device)
        : handle(::open(device.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK)) {}
    ~Opened() { ::close(handle); }
    Opened(const Opened&) = delete;
    Opened& operator=(const Opened&) = delete;

    const int handle;
};

TEST(Station, EndsACaptureAfterASilenceAndServesTheNextProgram) {
    Indicator indicator(Image, {});
    Station station(indicator);
    std::string device;
    station.OnPlugged = [&](const std::string& plugged) { device = plugged; };
    const Line::Time start{std::chrono::seconds(1000)};
    station.Step(start);
    const std::string failed = "capturing failed: only 5 of 8007 characters came\n";
    const struct {
        std::optional<std::chrono::seconds> silence;
        int milliseconds;
        std::string screen;
    } table[] = {{{}, 9999, ""}, {{}, 10000, failed}, {20s, 19999, ""}, {0s, 999999, ""}};
    for (const auto& row : table) {
        station.Step(start);
        const Opened program(device);
        int keptByTheLast = 1;
        ASSERT_EQ(::ioctl(program.handle, TIOCGEXCL, &keptByTheLast), 0);
        EXPECT_EQ(keptByTheLast, 0);
        if (row.silence) {
            station.SetSilence(*row.silence);
        }
        indicator.StartCapture();
        ASSERT_EQ(::ioctl(program.handle, TIOCEXCL), 0);
        ASSERT_EQ(::write(program.handle, ":8000", 5), 5);
        station.Step(start);
        indicator.TakeScreen();
        station.Step(start + std::chrono::milliseconds(row.milliseconds));
        EXPECT_EQ(indicator.TakeScreen(), row.screen) << row.milliseconds;
    }
    indicator.Transmit();  // nobody listens
    station.Step(start);
    char heard = 0;
    EXPECT_EQ(::read(Opened(device).handle, &heard, 1), -1);
}

TEST(Station, TellsTheEndOfATransmission) {
    Indicator indicator(Image, {});
    Station station(indicator);
    const Line::Time start{std::chrono::seconds(1000)};
    station.Step(start);
    station.Wire().SetSpeed(9600);
    const auto displayAfter = [&](std::chrono::milliseconds time) {
        station.Step(start + time);
        return indicator.Display();
    };
    indicator.Transmit();
    displayAfter(0ms);
    EXPECT_EQ(displayAfter(8300ms), "transmitting 2 tickets");
    EXPECT_EQ(displayAfter(8400ms), "transmitted, 2 tickets");
    indicator.PrintKey(0);  // what stands there later, stays
    EXPECT_EQ(displayAfter(8500ms), "Print: ticket 212");
    indicator.Transmit();
    displayAfter(9000ms);
    station.Wire().Arm(Line::Fault::Cut, 0);
    EXPECT_EQ(displayAfter(9100ms), "transmitting failed: the cable was pulled");
}

TEST(LineText, TellsWhatTheLineDoes) {
    Indicator indicator(Image, {});
    Station station(indicator);
    std::string device;
    station.OnPlugged = [&](const std::string& plugged) { device = plugged; };
    EXPECT_EQ(LineText(station, 2), "COM2: the cable is unplugged");
    station.Step();
    EXPECT_EQ(LineText(station, 2), "COM2 at full speed, not open");
    const Opened program(device);
    station.Wire().SetSpeed(9600);
    const struct {
        Line::Fault fault;
        int after;
        std::string text;
    } table[] = {{Line::Fault::None, 0, ""},
                 {Line::Fault::Stall, 9, "; the line will stand still"},
                 {Line::Fault::Stall, 0, "; the line stands still"},
                 {Line::Fault::Damage, 0, "; a character will be damaged"},
                 {Line::Fault::Cut, 9, "; the cable will be pulled"}};
    for (const auto& row : table) {
        station.Wire().Arm(row.fault, row.after);
        station.Step();
        EXPECT_EQ(LineText(station, 2), "COM2 at 9600 baud, opened by the program" + row.text);
    }
    station.Wire().Arm(Line::Fault::Cut, 0);
    station.Step();
    EXPECT_EQ(LineText(station, 2), "COM2: the cable is unplugged");
}

TEST(PortOffer, TakesAFreeNumberAndCleansUp) {
    const ScratchFolder folder;
    const auto target = [&](int number) {
        return std::filesystem::read_symlink(folder.Path() + "/COM" + std::to_string(number));
    };
    const PseudoTerminal served[4];
    const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY);
    ASSERT_EQ(::unlockpt(terminal), 0);
    const std::pair<int, std::string> links[] = {{200, "/dev/pts/99999"},  // left behind
                                                 {199, ::ptsname(terminal)},
                                                 {198, served[0].Device()},
                                                 {201, "/dev/unplugged"},  // the user's
                                                 {202, served[3].Device()}};
    for (const auto& [number, device] : links) {
        std::filesystem::create_symlink(device, folder.Path() + "/COM" + std::to_string(number));
    }
    {
        PortOffer offers[] = {{folder.Path(), 0}, {folder.Path(), 0}, {folder.Path(), 200}};
        for (std::size_t i = 0; i < std::size(offers); ++i) {
            offers[i].Offer(served[i].Device());
            EXPECT_EQ(target(offers[i].Number()), served[i].Device());
        }
        EXPECT_NE(offers[0].Number(), offers[1].Number());
        for (const int taken : {201, 202}) {
            EXPECT_THROW(PortOffer(folder.Path(), taken).Offer(served[0].Device()),
                         std::runtime_error);
        }
    }
    EXPECT_EQ(target(201), "/dev/unplugged");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.Path()), {}), 2);
    ::close(terminal);
}

}  // namespace
}  // namespace varno
