#include "platform/interruption.h"

#include <csignal>

namespace varno {
namespace {

constexpr int Signals[] = {SIGINT, SIGTERM};

volatile std::sig_atomic_t came = 0;  // the signal

void Remember(int signal) {
    came = signal;
}

}  // namespace

Interruption::Interruption() {
    for (const int signal : Signals) {
        if (std::signal(signal, Remember) == SIG_IGN) {
            std::signal(signal, SIG_IGN);  // as whoever started the program wants it
        }
    }
}

Interruption::~Interruption() {
    for (const int signal : Signals) {
        if (std::signal(signal, SIG_DFL) == SIG_IGN) {
            std::signal(signal, SIG_IGN);
        }
    }
    if (HasCome()) {
        std::raise(came);
    }
}

bool Interruption::HasCome() const {
    return came != 0;
}

}  // namespace varno
