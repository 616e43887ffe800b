// varno-practice: the program and a simulated indicator side by side, to practise with.

#include <unistd.h>

#include <QApplication>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "paper/effects_file.h"
#include "platform/files.h"
#include "platform/qt/descriptor_watch.h"
#include "platform/qt/end_requests.h"
#include "platform/qt/qt_platform.h"
#include "platform/user_folder.h"
#include "practice/desk.h"
#include "practice/indicator_window.h"
#include "simulator/memory.h"
#include "simulator/port_offer.h"
#include "simulator/station.h"

namespace varno {

namespace {

constexpr const char* Usage =
    "Usage: varno-practice [BLOCK.VRB]\n"
    "Starts the Varno Ticket Formatter and a simulated indicator to practise with, apart from all\n"
    "settings and serial ports of yours. Both hold the block file, without one a sample; when one\n"
    "of the two windows closes, so does the other.\n\n"
    "  --help   this text\n";

constexpr int UsualSpeed = 9600;  // baud
constexpr int Gap = 150;          // between the windows, in twips
constexpr const char* SampleBlock = "Plant.VRB";

std::filesystem::path OwnFolder() {
    return std::filesystem::canonical("/proc/self/exe").parent_path();
}

std::string BlockFile(int argc, char** argv) {
    if (argc > 2 || (argc == 2 && *argv[1] == '-')) {
        throw std::runtime_error("\"" + std::string(argv[argc - 1]) + "\" is not understood.\n" +
                                 Usage);
    }
    return argc == 2 ? argv[1] : OwnFolder() / SampleBlock;
}

Indicator MakeIndicator(const std::string& block) {
    Memory memory = LoadMemory(block);
    Effects effects;
    std::vector<std::string> faults = LoadEffects(OwnFolder(), UserDataFolder(), effects);
    Indicator indicator(std::move(memory.image), std::move(effects));
    indicator.Say("ready");
    faults.insert(faults.end(), memory.faults.begin(), memory.faults.end());
    if (!faults.empty()) {
        indicator.Say(faults.front());
    }
    return indicator;
}

int Run(int argc, char** argv) {
    if (argc == 2 && std::string(argv[1]) == "--help") {
        std::cout << Usage;
        return 0;
    }
    const std::string block = BlockFile(argc, argv);
    Indicator indicator = MakeIndicator(block);
    Station station(indicator);
    station.Wire().SetSpeed(UsualSpeed);
    Desk desk;
    PortOffer offer(desk.PortsFolder(), 0);
    station.OnPlugged = [&](const std::string& device) { offer.Offer(device); };
    station.OnUnplugged = [&] { offer.Withdraw(); };
    station.Step();
    desk.Start(OwnFolder() / ProgramName, block, offer.Number());

    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);  // but when the program has ended
    PrepareApplication();
    QtPlatform platform(ThisProgram());
    QtDescriptorWatch programEnd;
    programEnd.OnReady = [&] {
        if (desk.ProgramHasEnded()) {
            platform.Quit();
        }
    };
    programEnd.Wait({{desk.ProgramEnd(), true, false}}, std::chrono::milliseconds(-1));
    QtDescriptorWatch line;
    IndicatorWindow window(platform, line, indicator, station, offer.Number());
    window.OnClose = [&] { desk.AskProgramToEnd(); };
    const EndRequests requests([&] { window.Close(); });
    window.Show(ProgramPlace.left + ProgramPlace.width + Gap, ProgramPlace.top);
    return QApplication::exec();
}

// Who has chosen it in a menu sees no terminal.
void Report(const std::string& failure, int argc, char** argv) {
    std::cerr << "varno-practice: " << failure << '\n';
    const bool hasDisplay = std::getenv("DISPLAY") || std::getenv("WAYLAND_DISPLAY");
    if (argc == 1 && hasDisplay && ::isatty(STDERR_FILENO) == 0) {
        const QApplication application(argc, argv);
        PrepareApplication();
        QtPlatform(ThisProgram())
            .DialogBoxes()
            .ShowMessage(failure, ApplicationTitle, Buttons::Ok, Icon::Critical);
    }
}

}  // namespace

}  // namespace varno

int main(int argc, char** argv) {
    varno::SurviveFailedWrites();
    try {
        return varno::Run(argc, argv);
    } catch (const std::exception& failure) {
        varno::Report(failure.what(), argc, argv);
        return 1;
    }
}
