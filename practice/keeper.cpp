#include "practice/keeper.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <system_error>
#include <utility>

namespace varno {
namespace {

void Remove(const std::string& folder) {
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

void LetGoOfTheTerminal() {
    ::setsid();
    const Descriptor nothing(::open("/dev/null", O_RDWR | O_CLOEXEC));
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::dup2(*nothing, stream);
    }
    for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
        ::signal(signal, SIG_IGN);
    }
    ::prctl(PR_SET_NAME, "practice-keeper");
}

void AwaitEnd(const Descriptor& program) {
    pollfd ended = {*program, POLLIN, 0};
    while (program && ::poll(&ended, 1, -1) < 0 && errno == EINTR) {
    }
}

void Keep(const std::string& folder, const Descriptor& word) {
    Descriptor program;
    pid_t number = 0;
    while (::read(*word, &number, sizeof number) > 0) {
        program = OpenProcess(number);
    }
    AwaitEnd(program);
    Remove(folder);
}

}  // namespace

Descriptor OpenProcess(pid_t process) {
    return Descriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

Keeper::Keeper(std::string folder) : folder_(std::move(folder)) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        throw std::system_error(errno, std::generic_category(), "practice");
    }
    const Descriptor heard(ends[0]);
    word_ = Descriptor(ends[1]);
    process_ = ::fork();
    if (process_ == 0) {
        word_ = Descriptor();
        LetGoOfTheTerminal();
        Keep(folder_, heard);
        ::_exit(0);
    }
}

Keeper::~Keeper() {
    word_ = Descriptor();
    if (isProgramRunning_) {
        return;
    }
    int status = 0;
    if (process_ < 0 || ::waitpid(process_, &status, 0) != process_ || !WIFEXITED(status)) {
        Remove(folder_);  // it could not be made, or was killed
    }
}

void Keeper::WaitForProgram(pid_t program) {
    isProgramRunning_ = true;
    [[maybe_unused]] const ssize_t written = ::write(*word_, &program, sizeof program);
}

}  // namespace varno
