#include "simulator/pseudo_terminal.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/inotify.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
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

PseudoTerminal::PseudoTerminal()
    : master_(::posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC)) {
    Check(master_ >= 0, "pseudo-terminal");
    Check(::grantpt(master_) == 0 && ::unlockpt(master_) == 0, "pseudo-terminal");
    device_ = ::ptsname(master_);
    slave_ = ::open(device_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    Check(slave_ >= 0, "pseudo-terminal");
    MakeRaw(slave_);
    Check(::flock(slave_, LOCK_EX | LOCK_NB) == 0, "pseudo-terminal");
    watch_ = ::inotify_init1(IN_NONBLOCK | IN_CLOEXEC);
    Check(::inotify_add_watch(watch_, device_.c_str(), IN_OPEN | IN_CLOSE) >= 0, "pseudo-terminal");
}

PseudoTerminal::~PseudoTerminal() {
    ::close(watch_);
    ::close(slave_);
    ::close(master_);
}

bool PseudoTerminal::HasProgram() {
    const bool hadProgram = programs_ > 0;
    char events[ReadSize];
    for (ssize_t size; (size = ::read(watch_, events, sizeof events)) > 0;) {
        inotify_event event = {};
        for (ssize_t at = 0; at < size; at += static_cast<ssize_t>(sizeof event + event.len)) {
            std::memcpy(&event, events + at, sizeof event);
            programs_ += (event.mask & IN_OPEN) != 0 ? 1 : -1;
        }
    }
    if (hadProgram && programs_ == 0) {
        ::ioctl(slave_, TIOCNXCL);  // what a killed program leaves set
        MakeRaw(slave_);
    }
    return programs_ > 0;
}

bool PseudoTerminal::IsServed(const std::string& device) {
    const int opened = ::open(device.c_str(), O_RDONLY | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (opened < 0) {
        return errno == EBUSY;  // a program has it for itself
    }
    const bool served = ::flock(opened, LOCK_SH | LOCK_NB) != 0;
    ::close(opened);
    return served;
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
