#include "platform/qt/termination_signals.h"

#include "platform/qt/private_descriptors.h"

#include <sys/time.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <utility>

namespace glidemap {

namespace {

// SIGHUP is included, because the system may send it before SIGTERM when a session ends.
constexpr std::array<int, 3> endings{SIGTERM, SIGINT, SIGHUP};

// The write end of the pipe. It is atomic, because the signal handler may interrupt any code.
std::atomic<int> wordEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

// The maximum time for the shutdown in milliseconds; 0 means no limit.
std::atomic<long> endLimit = 0;
static_assert(std::atomic<long>::is_always_lock_free);

void endNow(int /*signal*/) {
    _exit(EXIT_SUCCESS);
}

// Starts a kernel timer, which ends the process even if all its threads are blocked.
void startEndLimit() {
    const long milliseconds = endLimit;
    if (milliseconds > 0) {
        itimerval timer = {};
        timer.it_value.tv_sec = milliseconds / 1000;
        timer.it_value.tv_usec =
            static_cast<decltype(timer.it_value.tv_usec)>(milliseconds % 1000 * 1000);
        setitimer(ITIMER_REAL, &timer, nullptr);
    }
}

void leaveWord(int /*signal*/) {
    const int before = errno;
    startEndLimit();
    const char word = 0;
    [[maybe_unused]] const auto written = write(wordEnd, &word, 1);
    errno = before;
}

// Uses a signal handler, not a signalfd. A signalfd needs the signal to be blocked, and launched
// programs would inherit the blocked state.
void install(int signal, struct sigaction* before) {
    struct sigaction action = {};
    action.sa_handler = leaveWord;
    action.sa_flags = SA_RESTART | static_cast<int>(SA_RESETHAND);
    sigaction(signal, nullptr, before);
    if (before->sa_handler != SIG_IGN) {
        sigaction(signal, &action, nullptr);
    }
}

} // namespace

struct TerminationSignals::State {
    std::array<int, 2> pipeEnds{-1, -1};
    std::array<struct sigaction, endings.size()> before = {};
    std::unique_ptr<QSocketNotifier> notifier;
};

TerminationSignals::TerminationSignals(std::function<void()> onSignal,
                                       std::optional<Milliseconds> limit)
    : state(std::make_unique<State>()) {
    if (limit) {
        struct sigaction action = {};
        action.sa_handler = endNow;
        sigaction(SIGALRM, &action, nullptr);
        endLimit = static_cast<long>(limit->count());
    }
    if (!makePipe(state->pipeEnds)) {
        return;
    }
    wordEnd = state->pipeEnds[1];
    state->notifier = std::make_unique<QSocketNotifier>(state->pipeEnds[0], QSocketNotifier::Read);
    QObject::connect(state->notifier.get(), &QSocketNotifier::activated,
                     [end = state->pipeEnds[0], onSignal = std::move(onSignal)] {
                         char word = 0;
                         if (read(end, &word, 1) == 1) {
                             onSignal();
                         }
                     });
    for (std::size_t index = 0; index < endings.size(); ++index) {
        install(endings[index], &state->before[index]);
    }
}

TerminationSignals::~TerminationSignals() {
    if (!state->notifier) {
        return;
    }
    for (std::size_t index = 0; index < endings.size(); ++index) {
        sigaction(endings[index], &state->before[index], nullptr);
    }
    wordEnd = -1;
    close(state->pipeEnds[0]);
    close(state->pipeEnds[1]);
}

void TerminationSignals::limitEnd() const {
    startEndLimit();
}

} // namespace glidemap
