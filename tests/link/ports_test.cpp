#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/serial/port_links.h"
#include "platform/serial/port_sentences.h"
#include "tests/link/scratch_folder.h"

namespace varno {
namespace {

TEST(Ports, LinksDecideAndDevicesTakeFreeNumbers) {
    // On-board ports first, then by name. A linked device has no second number, and a number that
    // a link holds is not free.
    const std::vector<SerialDevice> devices = {{"/dev/ttyUSB10"},
                                               {"/dev/ttyUSB9"},
                                               {"/dev/ttyACM0"},
                                               {"/dev/ttyS1", true},
                                               {"/dev/ttyS0", true}};
    EXPECT_EQ(NumberPorts({{1, "/dev/gone"}, {3, "/dev/ttyS0"}}, devices),
              (PortNumbers{{1, "/dev/gone"},
                           {2, "/dev/ttyS1"},
                           {3, "/dev/ttyS0"},
                           {4, "/dev/ttyACM0"},
                           {5, "/dev/ttyUSB9"},
                           {6, "/dev/ttyUSB10"}}));
}

TEST(Ports, ReadsOnlyLinksThatNameAPort) {
    const ScratchFolder folder;
    for (const char* name :
         {"COM3", "COM256", "COM0", "COM257", "COM03", "COM", "com4", "COM1x", "COM-1", "other"}) {
        std::filesystem::create_symlink("/dev/null", folder.Path() + "/" + name);
    }
    std::filesystem::create_symlink("COM3", folder.Path() + "/COM7");
    std::filesystem::create_symlink("gone", folder.Path() + "/COM8");
    EXPECT_EQ(
        ReadPortLinks(folder.Path()),
        (PortNumbers{
            {3, "/dev/null"}, {7, "/dev/null"}, {8, folder.Path() + "/gone"}, {256, "/dev/null"}}));
    EXPECT_EQ(ReadPortLinks(folder.Path() + "/none"), PortNumbers());
}

TEST(Ports, OnlyHardwareThatWasFoundIsThere) {
    const ScratchFolder folder;
    const auto add = [&](const std::string& name, const std::string& device, const char* type) {
        std::filesystem::create_directories(folder.Path() + device);
        std::filesystem::create_directories(folder.Path() + "/tty/" + name);
        std::filesystem::create_symlink(folder.Path() + device,
                                        folder.Path() + "/tty/" + name + "/device");
        std::ofstream(folder.Path() + "/tty/" + name + "/type") << type << '\n';
    };
    std::filesystem::create_directories(folder.Path() + "/tty/tty0");  // a console
    add("ttyS0", "/platform/serial8250", "4");
    add("ttyS1", "/platform/serial8250", "0");  // reserved name, no chip
    add("ttyUSB0", "/pci/usb1/1-1/ttyUSB0", "");
    EXPECT_EQ(NumberPorts({}, PresentDevices(folder.Path() + "/tty")),
              (PortNumbers{{1, "/dev/ttyS0"}, {2, "/dev/ttyUSB0"}}));
}

TEST(Ports, ADeviceIsLinkedByTheNameThatStays) {
    const ScratchFolder names;
    std::filesystem::create_symlink("/dev/null", names.Path() + "/usb-adapter-7");
    EXPECT_EQ(StableName("/dev/null", names.Path()), names.Path() + "/usb-adapter-7");
    EXPECT_EQ(StableName("/dev/zero", names.Path()), "/dev/zero");
}

TEST(Ports, MissingPortSaysWhichThereAre) {
    EXPECT_EQ(MissingPortSentence("COM3", {{1, "/dev/ttyS0"}, {2, "/dev/ttyUSB0"}}),
              "There is no COM3. The serial ports are COM1 (/dev/ttyS0), COM2 (/dev/ttyUSB0). "
              "Choose one with Serial Port Configuration, or connect the indicator.");
    EXPECT_EQ(MissingPortSentence("COM1", {}),
              "There is no COM1, and no other serial port. Connect the indicator or its adapter.");
}

}  // namespace
}  // namespace varno
