// How long a test waits for what must happen. Nothing waits this long unless it has failed, so it
// is generous: the kernel of the tests has one processor, and that shares a busy machine, where a
// desktop may take a good part of a minute to come up.
#pragma once

#include <algorithm>
#include <chrono>

namespace glidemap::vm {

class Deadline {
public:
    using Clock = std::chrono::steady_clock;

    explicit Deadline(std::chrono::seconds patience = std::chrono::seconds(60))
        : end(Clock::now() + patience) {}

    Clock::time_point time() const { return end; }
    bool passed() const { return Clock::now() >= end; }

    // What is left, for poll().
    int milliseconds() const {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
    }

private:
    Clock::time_point end;
};

} // namespace glidemap::vm
