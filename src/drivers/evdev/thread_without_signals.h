// Starts the driver's threads with all signals blocked, because the program's own threads handle
// signals.
#pragma once

#include <pthread.h>

#include <csignal>
#include <thread>
#include <utility>

namespace glidemap {

// Blocks all signals on the calling thread until the end of the scope, because a new thread
// inherits its creator's signal mask.
class SignalsBlocked {
public:
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }

private:
    sigset_t before{};
};

// Throws if the thread cannot start; the caller's signal mask is restored in that case too.
template <typename Function>
std::thread threadWithoutSignals(Function function) {
    const SignalsBlocked here;
    return std::thread(std::move(function));
}

} // namespace glidemap
