// Turns the signals that ask a program to end, SIGTERM, SIGINT and SIGHUP, into a call from the
// event loop, so that it ends in order: touchpads given back, keys let go.
//
// A second signal of a kind ends the program at once, as it always would have, should its end take
// too long; the kernel takes grabs and virtual devices back then. A signal that the program was
// started to ignore stays ignored.
//
// Thread:  the main thread, with its event loop.
// Owner:   the program makes one. Destroying it puts back what was before.
// Errors:  where the system refuses, the signals end the program at once.
#pragma once

#include <functional>
#include <memory>

namespace glidemap {

class TerminationSignals {
public:
    explicit TerminationSignals(std::function<void()> asked);
    TerminationSignals(const TerminationSignals&) = delete;
    TerminationSignals& operator=(const TerminationSignals&) = delete;
    ~TerminationSignals();

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap
