// varno-indicator: the simulated indicator as a terminal program, for training without hardware.

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <system_error>

#include "paper/effects_file.h"
#include "paper/text.h"
#include "platform/files.h"
#include "platform/serial/serial_settings.h"
#include "platform/user_folder.h"
#include "simulator/memory.h"
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
    "  --catalogues DIR     where the code catalogues and what codes do are; otherwise beside the\n"
    "                       program\n"
    "  --paper FILE         keep what is printed, behind what the file holds\n"
    "  --silence SECONDS    end a capture when nothing has come for so long; 0: wait for ever;\n"
    "                       otherwise 10\n"
    "  --help               this text\n";

struct Options {
    int port = 0;
    std::string portsFolder = PortsFolder();
    std::string catalogues;
    std::string blockFile;
    std::string paperFile;
    std::optional<std::chrono::seconds> silence;
    bool help = false;
};

int PortNumber(const std::string& text) {
    const int port = WholeNumber(text);
    if (port < 1 || port > MaxCommPort) {
        throw std::runtime_error("\"" + text + "\" is no port number: ports are numbered 1 to " +
                                 std::to_string(MaxCommPort) + ".");
    }
    return port;
}

std::chrono::seconds Seconds(const std::string& text) {
    const int seconds = WholeNumber(text);
    if (seconds < 0) {
        throw std::runtime_error("\"" + text + "\" is no number of seconds.");
    }
    return std::chrono::seconds(seconds);
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
        } else if (argument == "--paper") {
            options.paperFile = value();
        } else if (argument == "--silence") {
            options.silence = Seconds(value());
        } else if (argument.starts_with('-') || !options.blockFile.empty()) {
            throw std::runtime_error("\"" + argument + "\" is not understood.\n" + Usage);
        } else {
            options.blockFile = argument;
        }
    }
    return options;
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

    // Reads what is there and runs the lines that are complete. The end ends a line too; then it
    // stops asking.
    void Feed(Panel& panel) {
        char characters[1024];
        const ssize_t count = ::read(STDIN_FILENO, characters, sizeof characters);
        open_ = count > 0;
        pending_ += open_ ? std::string(characters, static_cast<std::size_t>(count)) : "\n";
        for (std::size_t end; (end = pending_.find('\n')) != std::string::npos;) {
            panel.Run(pending_.substr(0, end));
            pending_.erase(0, end + 1);
        }
    }

  private:
    bool open_ = true;
    std::string pending_;
};

// The file that what is printed is kept in, if there is one.
class PaperFile {
  public:
    explicit PaperFile(const std::string& path) : path_(path) {
        if (path.empty()) {
            return;
        }
        file_.open(path, std::ios::binary | std::ios::app);
        if (!file_) {
            throw std::runtime_error(Failure());
        }
    }

    void Keep(Indicator& indicator) {
        const std::string paper = PaperText(indicator.TakePaper());
        if (path_.empty() || paper.empty()) {
            return;
        }
        file_.clear();
        if (!(file_ << paper << std::flush)) {
            indicator.Say(Failure());
        }
    }

  private:
    std::string Failure() const {
        return path_ + ": " + std::generic_category().message(errno) + "; the paper is not kept";
    }

    std::string path_;
    std::ofstream file_;
};

void Serve(Indicator& indicator, Panel& panel, Station& station, PaperFile& paper) {
    const EndingSignals signals;
    CommandLines commands;
    while (ended == 0 && !panel.HasQuit()) {
        station.Step();
        std::cout << indicator.TakeScreen() << std::flush;
        const int wanted =
            (station.WantsInput() ? POLLIN : 0) | (station.WantsOutput() ? POLLOUT : 0);
        pollfd handles[] = {{commands.Handle(), POLLIN, 0},
                            {station.Handle(), static_cast<short>(wanted), 0},
                            {station.Openings(), POLLIN, 0}};
        signals.Wait(handles, std::size(handles), station.LongestWait());
        if (ended == 0 && handles[0].revents != 0) {
            commands.Feed(panel);
            paper.Keep(indicator);
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
    Memory memory = LoadMemory(options.blockFile);
    Effects effects;
    const std::vector<std::string> unknownEffects =
        LoadEffects(options.catalogues, UserDataFolder(), effects);
    PaperFile paper(options.paperFile);
    Indicator indicator(std::move(memory.image), std::move(effects));
    Station station(indicator);
    Line& line = station.Wire();
    Panel panel(indicator,
                {[&](int baud) { line.SetSpeed(baud); },
                 [&](Line::Fault fault, int characters) { line.Arm(fault, characters); },
                 [&] { line.Resume(); },
                 [&](int seconds) { station.SetSilence(std::chrono::seconds(seconds)); }});
    if (options.silence) {
        station.SetSilence(*options.silence);
    }
    PortOffer offer(options.portsFolder, options.port);
    station.OnPlugged = [&](const std::string& device) {
        offer.Offer(device);
        indicator.Say("COM" + std::to_string(offer.Number()) + " (" + device + ")");
    };
    station.OnUnplugged = [&] {
        offer.Withdraw();
        indicator.Say("unplugged");
    };
    indicator.Say("The command \"help\" lists the commands.");
    for (const std::string& fault : memory.faults) {
        indicator.Say(options.blockFile + " is damaged. " + fault);
    }
    for (const std::string& fault : unknownEffects) {
        indicator.Say(fault);
    }
    Serve(indicator, panel, station, paper);
    return 0;
}

}  // namespace

}  // namespace varno

int main(int argc, char** argv) {
    varno::SurviveFailedWrites();
    try {
        return varno::Run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "varno-indicator: " << failure.what() << '\n';
        return 1;
    }
}
