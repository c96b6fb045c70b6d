// Starts the driver's threads. Signals are for the program's own.
#pragma once

#include <pthread.h>

#include <csignal>
#include <thread>
#include <utility>

namespace glidemap {

template <typename Function>
std::thread threadWithoutSignals(Function function) {
    sigset_t all;
    sigset_t before;
    sigfillset(&all);
    pthread_sigmask(SIG_SETMASK, &all, &before);
    std::thread thread(std::move(function));
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    return thread;
}

} // namespace glidemap
