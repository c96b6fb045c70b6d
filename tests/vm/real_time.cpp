#include "real_time.h"

#include <cerrno>
#include <cmath>
#include <ctime>

namespace glidemap::vm {

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

} // namespace glidemap::vm
