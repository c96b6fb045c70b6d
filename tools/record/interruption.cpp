#include "interruption.h"

#include <unistd.h>

#include <csignal>
#include <initializer_list>

namespace glidemap::record {

namespace {

// The signal with which fail() ends wait().
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
    std::signal(SIGPIPE, SIG_IGN); // so that writing to a closed pipe returns an error
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
