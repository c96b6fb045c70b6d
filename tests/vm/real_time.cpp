#include "real_time.h"

#include <gtest/gtest.h>
#include <sched.h>

#include <cerrno>
#include <cmath>
#include <ctime>

namespace glidemap::test {

namespace {

constexpr pid_t thisThread = 0;

}

double monotonicNow() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) / 1e9;
}

void letTimePassUntil(double moment) {
    double whole = 0;
    const double fraction = std::modf(moment, &whole);
    const timespec until{static_cast<time_t>(whole), static_cast<long>(fraction * 1e9)};
    while (clock_nanosleep(CLOCK_MONOTONIC, TIMER_ABSTIME, &until, nullptr) == EINTR) {
    }
}

Punctual::Punctual() {
    const sched_param first{.sched_priority = sched_get_priority_min(SCHED_FIFO)};
    EXPECT_EQ(sched_setscheduler(thisThread, SCHED_FIFO, &first), 0);
}

Punctual::~Punctual() {
    const sched_param none{};
    EXPECT_EQ(sched_setscheduler(thisThread, SCHED_OTHER, &none), 0);
}

} // namespace glidemap::test
