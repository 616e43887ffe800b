// varno-indicator: the simulated indicator as a terminal program, for training without hardware.

#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>

#include "block/image.h"
#include "codec/catalogue.h"
#include "platform/files.h"
#include "platform/serial_settings.h"
#include "simulator/panel.h"
#include "simulator/port_offer.h"
#include "simulator/station.h"

namespace varno {

namespace {

constexpr const char* Usage =
    "Usage: varno-indicator [OPTION]... [BLOCK.VRB]\n"
    "Simulates the indicator on a serial port of its own. The block file is its ticket memory.\n\n"
    "  --port N             be COM<N>; otherwise the first number that is free\n"
    "  --ports-folder DIR   where the program looks for the numbering of ports\n"
    "  --catalogues DIR     where the two code catalogues are; otherwise beside the program\n"
    "  --help               this text\n";

struct Options {
    int port = 0;
    std::string portsFolder = DefaultPortsFolder();
    std::string catalogues;
    std::string blockFile;
    bool help = false;
};

int PortNumber(const std::string& text) {
    const bool digits = !text.empty() && text.size() < 4 &&
                        text.find_first_not_of("0123456789") == std::string::npos;
    const int port = digits ? std::stoi(text) : 0;
    if (port < 1 || port > MaxCommPort) {
        throw std::runtime_error("\"" + text + "\" is no port number: ports are numbered 1 to " +
                                 std::to_string(MaxCommPort) + ".");
    }
    return port;
}

Options ReadOptions(int argc, char** argv) {
    Options options;
    options.catalogues = std::filesystem::canonical("/proc/self/exe").parent_path();
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        const auto value = [&]() -> std::string {
            if (i + 1 == argc) {
                throw std::runtime_error(argument + " needs a value.");
            }
            return argv[++i];
        };
        if (argument == "--help") {
            options.help = true;
        } else if (argument == "--port") {
            options.port = PortNumber(value());
        } else if (argument == "--ports-folder") {
            options.portsFolder = value();
        } else if (argument == "--catalogues") {
            options.catalogues = value();
        } else if (argument.starts_with('-') || !options.blockFile.empty()) {
            throw std::runtime_error("\"" + argument + "\" is not understood.\n" + Usage);
        } else {
            options.blockFile = argument;
        }
    }
    return options;
}

// The ticket buffer image of a block file; without one an empty memory.
std::string LoadMemory(const std::string& blockFile) {
    if (blockFile.empty()) {
        return NewTicketBuffer();
    }
    std::string text;
    if (const Error error = ReadFile(blockFile, text)) {
        throw std::runtime_error(*error);
    }
    text.resize(std::min(text.find_first_of(",\r\n"), text.size()));
    if (text.size() != ImageLength || !IsImage(text)) {
        throw std::runtime_error(blockFile + " is no ticket block.");
    }
    return text;
}

volatile std::sig_atomic_t ended = 0;

// Signals that end the program come only while it waits.
class EndingSignals {
  public:
    EndingSignals() {
        struct sigaction action = {};
        action.sa_handler = [](int) { ended = 1; };
        sigset_t ending;
        ::sigemptyset(&ending);
        for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
            ::sigaddset(&ending, signal);
            ::sigaction(signal, &action, nullptr);
        }
        ::sigprocmask(SIG_BLOCK, &ending, &whileWaiting_);
        std::signal(SIGPIPE, SIG_IGN);
    }

    void Wait(pollfd* handles, nfds_t count, std::chrono::milliseconds longest) const {
        const timespec limit = {longest.count() / 1000, longest.count() % 1000 * 1'000'000};
        ::ppoll(handles, count, longest.count() < 0 ? nullptr : &limit, &whileWaiting_);
    }

  private:
    sigset_t whileWaiting_ = {};
};

// The lines of standard input as they come.
class CommandLines {
  public:
    int Handle() const { return open_ ? STDIN_FILENO : -1; }

    // Reads what is there and runs the lines that are complete. At the end it stops asking.
    void Feed(Panel& panel) {
        char characters[1024];
        const ssize_t count = ::read(STDIN_FILENO, characters, sizeof characters);
        if (count <= 0) {
            open_ = false;
            return;
        }
        pending_.append(characters, static_cast<std::size_t>(count));
        for (std::size_t end; (end = pending_.find('\n')) != std::string::npos;) {
            panel.Run(pending_.substr(0, end));
            pending_.erase(0, end + 1);
        }
    }

  private:
    bool open_ = true;
    std::string pending_;
};

void Serve(Indicator& indicator, Panel& panel, Station& station) {
    const EndingSignals signals;
    CommandLines commands;
    while (ended == 0 && !panel.HasQuit()) {
        station.Step();
        std::cout << indicator.TakeScreen() << std::flush;
        const int wanted =
            (station.WantsInput() ? POLLIN : 0) | (station.WantsOutput() ? POLLOUT : 0);
        pollfd handles[] = {{commands.Handle(), POLLIN, 0},
                            {station.Handle(), static_cast<short>(wanted), 0}};
        signals.Wait(handles, std::size(handles), station.LongestWait());
        if (ended == 0 && handles[0].revents != 0) {
            commands.Feed(panel);
        }
    }
    std::cout << indicator.TakeScreen() << std::flush;
}

int Run(int argc, char** argv) {
    const Options options = ReadOptions(argc, argv);
    if (options.help) {
        std::cout << Usage;
        return 0;
    }
    Indicator indicator(LoadMemory(options.blockFile),
                        {options.catalogues + "/" + std::string(ControlCatalogueName),
                         options.catalogues + "/" + std::string(PrintCatalogueName)});
    Station station(indicator);
    Line& line = station.Wire();
    Panel panel(
        indicator,
        {[&](int baud) { line.SetSpeed(baud); }, [&](int characters) { line.CutAfter(characters); },
         [&](int characters) { line.StallAfter(characters); }, [&] { line.Resume(); }});
    PortOffer offer(options.portsFolder, options.port);
    station.OnPlugged = [&](const std::string& device) {
        offer.Offer(device);
        indicator.Say("COM" + std::to_string(offer.Number()) + " (" + device + ")");
    };
    station.OnUnplugged = [&] {
        offer.Withdraw();
        indicator.Say("unplugged");
    };
    Serve(indicator, panel, station);
    return 0;
}

}  // namespace

}  // namespace varno

int main(int argc, char** argv) {
    try {
        return varno::Run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "varno-indicator: " << failure.what() << '\n';
        return 1;
    }
}
