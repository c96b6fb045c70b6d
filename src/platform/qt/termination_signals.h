// Turns the signals that ask a program to end, SIGTERM, SIGINT and SIGHUP, into a call from the
// event loop, so that it ends in order: touchpads given back, keys let go.
//
// With a limit, the program ends that long after the first signal, or after limitEnd(), whatever it
// waits for: a service of the desktop may never respond. The exit status is success then.
//
// A second signal of a kind ends the program at once, as it always would have, should its end take
// too long; the kernel takes grabs and virtual devices back then. A signal that the program was
// started to ignore stays ignored.
//
// Thread:  the main thread, with its event loop.
// Owner:   the program makes one. Destroying it puts back what was before, but a running limit stays.
// Errors:  where the system refuses, the signals end the program at once.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <optional>

namespace glidemap {

class TerminationSignals {
public:
    using Milliseconds = std::chrono::milliseconds;

    explicit TerminationSignals(std::function<void()> asked,
                                std::optional<Milliseconds> limit = std::nullopt);
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

    // For an end that no signal asked for.
    void limitEnd() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap
