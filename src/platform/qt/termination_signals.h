// Calls a function from the event loop on SIGTERM, SIGINT and SIGHUP, so that the program shuts
// down in order: it releases its grabs and its keys.
//
// With a limit, the program exits that long after the first signal or after limitEnd(), even if it
// is blocked: a service of the desktop may never respond. It then exits with success.
//
// A second signal of the same kind ends the program at once, in case the shutdown hangs; the kernel
// then releases grabs and removes virtual devices. A signal that was ignored when the program
// started stays ignored.
//
// Thread:  the main thread, with its event loop.
// Owner:   the program. The destructor restores the previous handlers, but a running limit stays.
// Errors:  none; if a handler cannot be installed, the signals end the program at once.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace glidemap {

class TerminationSignals {
public:
    using Milliseconds = std::chrono::milliseconds;

    explicit TerminationSignals(std::function<void()> onSignal,
                                std::optional<Milliseconds> limit = std::nullopt);
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

    // For a shutdown without a signal.
    void limitEnd() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap
