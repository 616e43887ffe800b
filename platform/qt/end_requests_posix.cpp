#include "platform/qt/end_requests.h"

#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QSocketNotifier>
#include <QWidget>
#include <csignal>
#include <utility>

namespace varno {
namespace {

constexpr int Signals[] = {SIGTERM, SIGINT, SIGHUP};
constexpr int NextTry = 100;  // milliseconds

int pipeEnds[2] = {-1, -1};  // a handler may write, and nothing else

void Tell(int /*signal*/) {
    [[maybe_unused]] const ssize_t written = ::write(pipeEnds[1], "", 1);
}

// One that whoever started the program wants ignored stays so.
void SetHandler(int signal, void (*handler)(int)) {
    if (std::signal(signal, handler) == SIG_IGN) {
        std::signal(signal, SIG_IGN);
    }
}

}  // namespace

EndRequests::EndRequests(std::function<void()> close) : close_(std::move(close)) {
    if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) {
        return;  // the signals end the program, then
    }
    signals_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(signals_.get(), &QSocketNotifier::activated, signals_.get(),
                     [this] { Came(); });
    nextTry_.setInterval(NextTry);
    QObject::connect(&nextTry_, &QTimer::timeout, &nextTry_, [this] { TryToClose(); });
    for (const int signal : Signals) {
        SetHandler(signal, Tell);
    }
}

EndRequests::~EndRequests() {
    for (const int signal : Signals) {
        SetHandler(signal, SIG_DFL);
    }
    signals_.reset();
    for (int& end : pipeEnds) {
        ::close(std::exchange(end, -1));
    }
}

void EndRequests::Came() {
    signals_->setEnabled(false);  // one is enough
    nextTry_.start();
    TryToClose();
}

void EndRequests::TryToClose() {
    if (QWidget* const dialog = QApplication::activeModalWidget()) {
        dialog->close();
        return;  // its own event loop has to end first
    }
    nextTry_.stop();
    close_();
}

}  // namespace varno
