// A timer with the report rate of a touchpad. Between reports, the thread that stands in for the
// driver's thread waits for this timer.
//
// Units:   one report every 8 ms.
#pragma once

#include <sys/timerfd.h>
#include <unistd.h>

#include <cstdint>

namespace glidemap::bench {

class Pace {
public:
    Pace() {
        constexpr long interval = 8'000'000; // nanoseconds
        const itimerspec every{{0, interval}, {0, interval}};
        timerfd_settime(timer, 0, &every, nullptr);
    }
    Pace(const Pace&) = delete;
    Pace& operator=(const Pace&) = delete;
    ~Pace() { close(timer); }

    void waitForNextReport() const {
        std::uint64_t beats = 0;
        [[maybe_unused]] const auto size = read(timer, &beats, sizeof(beats));
    }

private:
    int timer = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC);
};

} // namespace glidemap::bench
