#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/serial_ports.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

namespace fs = std::filesystem;

TEST(Ports, LinksDecideAndDevicesTakeFreeNumbers) {
    const PortNumbers links = {{2, "/dev/ttyUSB1"}, {5, "/dev/gone"}};
    struct {
        const char* name;
        PortNumbers links;
        std::vector<SerialDevice> devices;
        PortNumbers ports;
    } const table[] = {
        {"nothing", {}, {}, {}},
        {"on-board first, then by name",
         {},
         {{"/dev/ttyUSB10"},
          {"/dev/ttyUSB9"},
          {"/dev/ttyACM0"},
          {"/dev/ttyS1", true},
          {"/dev/ttyS0", true}},
         {{1, "/dev/ttyS0"},
          {2, "/dev/ttyS1"},
          {3, "/dev/ttyACM0"},
          {4, "/dev/ttyUSB9"},
          {5, "/dev/ttyUSB10"}}},
        {"a linked device has no second number",
         links,
         {{"/dev/ttyS0", true}, {"/dev/ttyUSB0"}, {"/dev/ttyUSB1"}},
         {{1, "/dev/ttyS0"}, {2, "/dev/ttyUSB1"}, {3, "/dev/ttyUSB0"}, {5, "/dev/gone"}}},
        {"a number that a link holds is not free",
         {{1, "/dev/gone"}},
         {{"/dev/ttyS0", true}},
         {{1, "/dev/gone"}, {2, "/dev/ttyS0"}}},
    };
    for (const auto& row : table) {
        EXPECT_EQ(NumberPorts(row.links, row.devices), row.ports) << row.name;
    }
}

TEST(Ports, ReadsOnlyLinksThatNameAPort) {
    const ScratchFolder folder;
    const auto target = folder.Path() + "/device";
    std::ofstream(target) << "";
    for (const char* name :
         {"COM3", "COM256", "COM0", "COM257", "COM03", "COM", "com4", "COM1x", "COM-1", "other"}) {
        fs::create_symlink("device", folder.Path() + "/" + name);
    }
    fs::create_symlink("COM3", folder.Path() + "/COM7");
    fs::create_symlink("gone", folder.Path() + "/COM8");
    EXPECT_EQ(ReadPortLinks(folder.Path()),
              (PortNumbers{{3, target}, {7, target}, {8, folder.Path() + "/gone"}, {256, target}}));
    EXPECT_EQ(ReadPortLinks(folder.Path() + "/none"), PortNumbers());
}

TEST(Ports, OnlyHardwareThatWasFoundIsThere) {
    const ScratchFolder folder;
    const auto add = [&](const std::string& name, const char* device, const char* type) {
        fs::create_directories(folder.Path() + "/tty/" + name);
        if (device != nullptr) {
            fs::create_directories(folder.Path() + device);
            fs::create_symlink(folder.Path() + device, folder.Path() + "/tty/" + name + "/device");
        }
        if (type != nullptr) {
            std::ofstream(folder.Path() + "/tty/" + name + "/type") << type << '\n';
        }
    };
    add("tty0", nullptr, nullptr);  // a console
    add("ttyS0", "/platform/serial8250", "4");
    add("ttyS1", "/platform/serial8250", "0");  // reserved name, no chip
    add("ttyUSB0", "/pci/usb1/1-1/ttyUSB0", nullptr);
    const std::vector<SerialDevice> devices = PresentDevices(folder.Path() + "/tty");
    EXPECT_EQ(NumberPorts({}, devices), (PortNumbers{{1, "/dev/ttyS0"}, {2, "/dev/ttyUSB0"}}));
}

TEST(Ports, MissingPortSaysWhichThereAre) {
    EXPECT_EQ(MissingPortSentence(3, {{1, "/dev/ttyS0"}, {2, "/dev/ttyUSB0"}}),
              "There is no COM3. The serial ports are COM1 (/dev/ttyS0), COM2 (/dev/ttyUSB0). "
              "Choose one with Serial Port Configuration, or connect the indicator.");
    EXPECT_EQ(MissingPortSentence(1, {}),
              "There is no COM1, and no other serial port. Connect the indicator or its adapter.");
}

}  // namespace
}  // namespace varno
