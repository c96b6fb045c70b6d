#include "drivers/evdev/stop_signals.h"

#include "core/open_file.h"
#include "drivers/evdev/thread_without_signals.h"

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <exception>
#include <mutex>
#include <utility>

namespace glidemap {

namespace {

constexpr std::array<int, 3> stops{SIGTSTP, SIGTTIN, SIGTTOU};

// The write end of the pipe. The signal handler writes the signal's number to it. The handler may
// interrupt any code, so the variable must be lock-free.
std::atomic<int> signalPipe = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void writeSignal(int signal) {
    const int before = errno;
    const auto number = static_cast<char>(signal);
    [[maybe_unused]] const auto written = write(signalPipe, &number, 1);
    errno = before;
}

void handle(int signal) {
    struct sigaction action = {};
    action.sa_handler = writeSignal;
    action.sa_flags = SA_RESTART;
    sigaction(signal, &action, nullptr);
}

bool isUnhandled(int signal) {
    struct sigaction now = {};
    return sigaction(signal, nullptr, &now) == 0 && now.sa_handler == SIG_DFL;
}

// Stops the process with the signal's default action. Returns when the process continues. If the
// process group is orphaned, returns immediately: the kernel does not stop such a group, because no
// shell could continue it.
void stopProcess(int signal) {
    struct sigaction action = {};
    action.sa_handler = SIG_DFL;
    sigaction(signal, &action, nullptr);
    sigset_t only;
    sigemptyset(&only);
    sigaddset(&only, signal);
    pthread_sigmask(SIG_UNBLOCK, &only, nullptr);
    raise(signal);
    pthread_sigmask(SIG_BLOCK, &only, nullptr);
    handle(signal);
}

// Several signals that the thread reads at once count as one.
void run(const OpenFile& readEnd, const std::function<void()>& giveBack,
         const std::function<void()>& grabAgain) {
    pthread_setname_np(pthread_self(), "glidemap-stop");
    std::array<char, 16> signals{};
    for (;;) {
        const ssize_t count =
            retried([&] { return read(readEnd.descriptor(), signals.data(), signals.size()); });
        if (count <= 0) {
            return;
        }
        giveBack();
        stopProcess(signals[0]);
        grabAgain();
    }
}

void begin(std::function<void()> giveBack, std::function<void()> grabAgain) {
    std::array<int, 2> ends{};
    if (pipe2(ends.data(), O_CLOEXEC) != 0) {
        return;
    }
    OpenFile readEnd(ends[0]);
    // The write end is never closed, because the handler may run at any time. It does not block,
    // because a full pipe must not block the interrupted code.
    fcntl(ends[1], F_SETFL, O_NONBLOCK);
    signalPipe = ends[1];
    std::thread thread =
        threadWithoutSignals([end = std::move(readEnd), giveBack = std::move(giveBack),
                              grabAgain = std::move(grabAgain)] { run(end, giveBack, grabAgain); });
    thread.detach();
    for (const int signal : stops) {
        if (isUnhandled(signal)) {
            handle(signal);
        }
    }
}

} // namespace

void watchStopSignals(std::function<void()> giveBack, std::function<void()> grabAgain) {
    static std::once_flag once;
    try {
        std::call_once(once, [&] { begin(std::move(giveBack), std::move(grabAgain)); });
    } catch (const std::exception&) {
        return; // the thread cannot start
    }
}

} // namespace glidemap
