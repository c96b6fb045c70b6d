#include "pace.h"

#include <algorithm>
#include <thread>

namespace glidemap::replay {

namespace {

// Longer than any machine runs, and still within the clock's range.
constexpr double maxWait = 1e9;

} // namespace

void Pace::waitUntil(double time) {
    if (!isRealTime()) {
        return;
    }
    if (!last || time < last->time) {
        last = {Clock::now(), time};
        return;
    }
    const std::chrono::duration<double> wait(std::min(time - last->time, maxWait));
    last = {last->moment + std::chrono::duration_cast<Clock::duration>(wait), time};
    std::this_thread::sleep_until(last->moment);
}

} // namespace glidemap::replay
