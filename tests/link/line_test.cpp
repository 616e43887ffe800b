#include "simulator/line.h"

#include <gtest/gtest.h>

#include <fstream>

#include "simulator/port_offer.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

using std::chrono::milliseconds;

// 1000 characters a second.
struct LineTest : testing::Test {
    Line line;
    Line::Time start{std::chrono::seconds(1000)};

    LineTest() { line.SetSpeed(10000); }
    std::string At(int time, Direction way = Direction::ToIndicator) {
        return line.TakeOut(way, start + milliseconds(time));
    }
    void PutIn(int time, const char* characters, Direction way = Direction::ToIndicator) {
        line.PutIn(way, characters, start + milliseconds(time));
    }
};

TEST_F(LineTest, CarriesAtItsSpeedInEachDirection) {
    PutIn(0, "abcdef");
    PutIn(0, "xyz", Direction::FromIndicator);
    EXPECT_EQ(At(0), "");
    EXPECT_EQ(At(2), "ab");
    EXPECT_EQ(At(2), "");
    EXPECT_EQ(At(5, Direction::FromIndicator), "xyz");
    EXPECT_EQ(At(100), "cdef");
    EXPECT_FALSE(line.NextDue());
    PutIn(100, "gh");  // the idle time before does not count
    EXPECT_EQ(line.NextDue(), start + milliseconds(102));
    EXPECT_EQ(At(101), "g");
    line.SetSpeed(0);
    EXPECT_EQ(At(101), "h");
}

TEST_F(LineTest, IsFullWhenItHasEnoughForAWhile) {
    PutIn(0, "12345678");
    EXPECT_FALSE(line.IsFull(Direction::ToIndicator));
    PutIn(0, "9");
    EXPECT_TRUE(line.IsFull(Direction::ToIndicator));
    EXPECT_FALSE(line.IsFull(Direction::FromIndicator));
}

TEST_F(LineTest, FaultsComeAfterTheirCount) {
    line.StallAfter(3);
    PutIn(0, "abcdef");
    PutIn(0, "xyz", Direction::FromIndicator);
    EXPECT_EQ(At(2), "ab");
    EXPECT_FALSE(line.IsStalled());
    EXPECT_EQ(At(3, Direction::FromIndicator), "x");
    EXPECT_TRUE(line.IsStalled());
    EXPECT_TRUE(line.IsFull(Direction::ToIndicator));
    EXPECT_EQ(At(50), "");
    EXPECT_FALSE(line.NextDue());
    line.Resume();
    EXPECT_EQ(At(51), "c");  // the time it stood still does not count

    line.CutAfter(0);
    EXPECT_TRUE(line.IsCut());
    EXPECT_FALSE(line.IsStalled());
    line.Repair();
    EXPECT_FALSE(line.IsCut());
    EXPECT_EQ(At(100), "");
}

TEST(PortOffer, TakesAFreeNumberAndCleansUp) {
    const ScratchFolder folder;
    const std::string ports = folder.Path() + "/made/ports";
    const std::string device = folder.Path() + "/device";
    std::ofstream(device) << "";
    std::filesystem::create_directories(ports);
    const auto link = [&](int number) { return ports + "/COM" + std::to_string(number); };
    std::filesystem::create_symlink("/dev/pts/99999", link(200));   // left behind
    std::filesystem::create_symlink("/dev/my-adapter", link(201));  // the user's, unplugged
    {
        PortOffer first(ports, 0);
        PortOffer second(ports, 0);
        PortOffer third(ports, 200);
        PortOffer fourth(ports, 201);
        first.Offer(device);
        second.Offer(device);
        third.Offer(device);
        EXPECT_NE(first.Number(), second.Number());
        EXPECT_EQ(std::filesystem::read_symlink(link(first.Number())), device);
        EXPECT_EQ(std::filesystem::read_symlink(link(200)), device);
        EXPECT_THROW(fourth.Offer(device), std::runtime_error);
        EXPECT_EQ(std::filesystem::read_symlink(link(201)), "/dev/my-adapter");
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(ports), {}), 1);
}

}  // namespace
}  // namespace varno
