#include "practice/desk.h"

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

#include "paper/effects_file.h"
#include "platform/serial/serial_settings.h"
#include "platform/user_folder.h"

namespace varno {
namespace {

namespace fs = std::filesystem;

// A folder that programs keep things of their user in.
struct Home {
    const char* variable;
    const char* inHome;  // without the variable
    const char* atDesk;
};

constexpr Home Config{"XDG_CONFIG_HOME", ".config", "config"};
constexpr Home Data{"XDG_DATA_HOME", ".local/share", "data"};
constexpr Home State{"XDG_STATE_HOME", ".local/state", "state"};
constexpr Home Cache{"XDG_CACHE_HOME", ".cache", "cache"};

// What the program shall find as its user has it: the look of the desktop, and what codes do.
struct Taken {
    const Home& home;
    std::string_view file;
};

const std::string EffectsFile = std::string(ProgramName) + "/" + std::string(EffectsFileName);
const std::array TakenAlong{Taken{Config, "kdeglobals"},
                            Taken{Config, "dconf/user"},
                            Taken{Config, "gtk-3.0/settings.ini"},
                            Taken{Config, "qt6ct/qt6ct.conf"},
                            Taken{Config, "fontconfig/fonts.conf"},
                            Taken{Data, EffectsFile}};

fs::path UsersFolder(const Home& home) {
    const char* const set = std::getenv(home.variable);
    if (set != nullptr && *set == '/') {
        return set;
    }
    const char* const own = std::getenv("HOME");
    return own != nullptr ? fs::path(own) / home.inHome : fs::path();
}

// What cannot be read is left out: the program would not read it either.
void TakeAlong(const fs::path& desk) {
    for (const Taken& taken : TakenAlong) {
        const fs::path from = UsersFolder(taken.home) / taken.file;
        const fs::path to = desk / taken.home.atDesk / taken.file;
        std::error_code ignored;
        if (fs::is_regular_file(from, ignored)) {
            fs::create_directories(to.parent_path(), ignored);
            fs::copy_file(from, to, ignored);
        }
    }
}

void WriteSettings(const fs::path& desk, int port) {
    const fs::path folder = desk / Config.atDesk;
    fs::create_directories(folder);
    std::ofstream settings(folder / (std::string(ProgramName) + ".ini"));
    settings << "[Communications]\nCOM=" << port << "\nSettings=\"" << DefaultSerialSettings
             << "\"\n\n[WindowSize]\nState=0\nLeft=" << ProgramPlace.left
             << "\nTop=" << ProgramPlace.top << "\nWidth=" << ProgramPlace.width
             << "\nHeight=" << ProgramPlace.height << '\n';
    if (!settings.flush()) {
        throw std::system_error(errno, std::generic_category(), folder.string());
    }
}

[[noreturn]] void Become(const std::string& program, const std::string& block,
                         const fs::path& desk) {
    for (const Home& home : {Config, Data, State, Cache}) {
        const char* const own = std::getenv(home.variable);
        ::setenv((UsersOwn + std::string(home.variable)).c_str(), own != nullptr ? own : "", 1);
        ::setenv(home.variable, (desk / home.atDesk).c_str(), 1);
    }
    ::execl(program.c_str(), program.c_str(), block.c_str(), nullptr);
    ::_exit(127);
}

}  // namespace

std::string Desk::PortsFolder() const {
    return folder_.path + "/" + Data.atDesk + "/" + ProgramName + "/ports";
}

void Desk::Start(const std::string& program, const std::string& block, int port) {
    if (::access(program.c_str(), X_OK) != 0) {
        throw std::system_error(errno, std::generic_category(), program);
    }
    TakeAlong(folder_.path);
    WriteSettings(folder_.path, port);
    const pid_t self = ::getpid();
    program_ = ::fork();
    if (program_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGTERM);
        if (::getppid() == self) {
            Become(program, block, folder_.path);
        }
        ::_exit(0);
    }
    programEnd_ = OpenProcess(program_);
    if (program_ < 0 || !programEnd_) {
        throw std::system_error(errno, std::generic_category(), program);
    }
    keeper_.WaitForProgram(program_);
}

void Desk::AskProgramToEnd() const {
    if (program_ > 0) {
        ::kill(program_, SIGTERM);
    }
}

bool Desk::ProgramHasEnded() {
    if (program_ > 0 && ::waitpid(program_, nullptr, WNOHANG) == program_) {
        program_ = -1;
        keeper_.ProgramHasEnded();
    }
    return program_ < 0;
}

Desk::~Desk() {
    AskProgramToEnd();
}

}  // namespace varno
