// The time-out for waits in tests. Only a failing test waits this long, so the value is generous.
// The tests' kernel has one processor, on a machine that may be busy, and a desktop may take most
// of a minute to start.
#pragma once

#include <algorithm>
#include <chrono>

namespace glidemap::test {

class Deadline {
public:
    using Clock = std::chrono::steady_clock;

    explicit Deadline(std::chrono::seconds patience = std::chrono::seconds(60))
        : end(Clock::now() + patience) {}

    Clock::time_point time() const { return end; }
    bool passed() const { return Clock::now() >= end; }

    // Returns the remaining time, for poll().
    int milliseconds() const {
        const auto left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now());
        return static_cast<int>(std::max<std::chrono::milliseconds::rep>(left.count(), 0));
    }

private:
    Clock::time_point end;
};

} // namespace glidemap::test
