// Whole transfers over a pseudo-terminal, without faults.
#include <gtest/gtest.h>

#include <random>

#include "tests/line/cable.h"
#include "tests/link/link_window.h"

namespace varno {
namespace {

struct TransfersTest : testing::Test {
    Cable cable;
    std::unique_ptr<SerialControl> port = cable.MakePort();
    LinkWindow window{*port};

    TransfersTest() {
        // A turn for every 16th character is enough here, and saves most of the time.
        window.platform.onDoEvents = [turn = 0]() mutable {
            if (++turn % 16 == 0) {
                QCoreApplication::processEvents();
            }
        };
    }
    void Download(const std::string& image) {
        window.Load(image);
        cable.indicator.StartCapture();
        window.ExpectConfirmation(Answer::Ok);
        window.download.Transmit_Click();
        EXPECT_TRUE(WaitFor([&] { return cable.indicator.Memory() == image; }));
    }
    void StartUpload() {
        if (window.TicketList.ListCount() > 0) {
            window.ExpectWarning(Answer::Ok);
        }
        window.upload.Retrieve_Click();
        window.log = {"nothing yet"};
    }
    void ExpectUpload(const std::string& image) {
        cable.indicator.Transmit();
        cable.Step();
        EXPECT_TRUE(WaitFor([this] { return !port->PortOpen(); }));
        EXPECT_EQ(window.log.back(), "upload ended");
        EXPECT_TRUE(window.block.TicketBuffer == image);
    }
};

// Memories of any length and content: what is in them is no concern of the line.
std::string RandomImage(unsigned seed) {
    std::mt19937 random(seed);
    std::string memory(random() % (MemoryDigits + 1), '0');
    for (char& digit : memory) {
        digit = "0123456789ABCDEF"[random() % 16];
    }
    return SealTicketBuffer(memory);
}

TEST_F(TransfersTest, BlocksComeBackEqual) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        const std::string image = RandomImage(seed);
        Download(image);
        const auto rows = window.TicketList.Rows();
        StartUpload();
        ExpectUpload(image);
        EXPECT_EQ(window.TicketList.Rows(), rows);
    }
}

TEST_F(TransfersTest, UploadArrivesInWhateverPieces) {
    const struct {
        const char* name;
        int speed;
        int noises;
        std::size_t startedBefore;  // characters of a transmission that is begun again
    } table[] = {
        {"as fast as it goes", 0, 0, 0},
        {"a few characters at a time", 230400, 0, 0},
        {"noise before", 0, 3, 0},
        {"a restart in the middle", 0, 0, 4001},
        {"noise and a restart", 460800, 1, 100},
    };
    const std::string image = RandomImage(7);
    cable.Wire().SetSpeed(230400);  // the program is faster and has to wait for room
    Download(image);
    for (const auto& row : table) {
        SCOPED_TRACE(row.name);
        StartUpload();
        for (int i = 0; i < row.noises; ++i) {
            cable.indicator.SendNoise();
        }
        if (row.startedBefore > 0) {
            cable.indicator.Transmit();
            cable.Wire().StallAfter(row.noises * NoiseLength + static_cast<int>(row.startedBefore));
            cable.Step();
            EXPECT_TRUE(
                WaitFor([&] { return window.block.TicketBuffer.size() == row.startedBefore; }));
            cable.Wire().Repair();
        }
        cable.Wire().SetSpeed(row.speed);
        ExpectUpload(image);
    }
}

}  // namespace
}  // namespace varno
