#include "interruption.h"

#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace glidemap::record {

namespace {

// Raised by fail().
constexpr int failureSignal = SIGUSR1;

sigset_t endingSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    for (const int number : {SIGINT, SIGTERM, SIGHUP, failureSignal}) {
        sigaddset(&signals, number);
    }
    return signals;
}

} // namespace

Interruption::Interruption() {
    const sigset_t signals = endingSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN); // writing to a closed pipe then fails with an error
}

void Interruption::wait() const {
    const sigset_t signals = endingSignals();
    int received = 0;
    sigwait(&signals, &received);
}

void Interruption::fail() const {
    kill(getpid(), failureSignal);
}

} // namespace glidemap::record
