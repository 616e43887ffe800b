#include "simulator/pseudo_terminal.h"

#include <fcntl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <system_error>

namespace varno {

namespace {

constexpr std::size_t ReadSize = 4096;

void Check(bool succeeded, const char* what) {
    if (!succeeded) {
        throw std::system_error(errno, std::generic_category(), what);
    }
}

void MakeRaw(int terminal) {
    termios settings = {};
    Check(::tcgetattr(terminal, &settings) == 0, "pseudo-terminal settings");
    ::cfmakeraw(&settings);
    Check(::tcsetattr(terminal, TCSANOW, &settings) == 0, "pseudo-terminal settings");
}

}  // namespace

PseudoTerminal::PseudoTerminal() : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK)) {
    Check(master_ >= 0, "pseudo-terminal");
    Check(::grantpt(master_) == 0 && ::unlockpt(master_) == 0, "pseudo-terminal");
    device_ = ::ptsname(master_);
    slave_ = ::open(device_.c_str(), O_RDWR | O_NOCTTY);
    Check(slave_ >= 0, "pseudo-terminal");
    MakeRaw(slave_);
}

PseudoTerminal::~PseudoTerminal() {
    ::close(slave_);
    ::close(master_);
}

std::string PseudoTerminal::Read() {
    std::string characters(ReadSize, '\0');
    const ssize_t count = ::read(master_, characters.data(), characters.size());
    characters.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return characters;
}

std::size_t PseudoTerminal::Write(std::string_view characters) {
    const ssize_t count = ::write(master_, characters.data(), characters.size());
    return count > 0 ? static_cast<std::size_t>(count) : 0;
}

void PseudoTerminal::Hold(bool held) {
    if (held_ != held) {
        held_ = held;
        ::tcflow(slave_, held ? TCOOFF : TCOON);
    }
}

}  // namespace varno
