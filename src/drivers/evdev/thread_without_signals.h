// Starts the driver's threads. Signals are for the program's own.
#pragma once

#include <pthread.h>

#include <csignal>
#include <thread>
#include <utility>

namespace glidemap {

// A thread inherits what is blocked where it is made.
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

// Throws where there is no thread to be had; the caller's signals are as before then, too.
template <typename Function>
std::thread threadWithoutSignals(Function function) {
    const SignalsBlocked here;
    return std::thread(std::move(function));
}

} // namespace glidemap
