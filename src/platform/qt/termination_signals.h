// Calls a function from the event loop on SIGTERM, SIGINT and SIGHUP, so that the program shuts
// down cleanly and releases its grabs and keys.
//
// If a limit is given, the process exits when this much time has passed since the last signal or
// the last call of limitEnd(), even if an unresponsive desktop service blocks the shutdown. The
// exit status is then success.
//
// A second signal of the same kind ends the process immediately, in case the shutdown hangs. The
// kernel then releases grabs and removes virtual devices. A signal that was ignored when the
// program started stays ignored.
//
// Thread:  the main thread, with its event loop.
// Owner:   the program. The destructor restores the previous handlers, but a running limit stays in
//          force.
// Errors:  none; if a handler cannot be installed, the signal ends the process immediately.
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

    // Starts the limit for a shutdown that was not caused by a signal.
    void limitEnd() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap
