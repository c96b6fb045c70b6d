#include "platform/common/steady_uptime_clock.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

TEST(SteadyUptimeClock, UptimeNeverDecreases) {
    const SteadyUptimeClock clock;
    double last = clock.uptime();
    for (int reading = 0; reading < 1000; ++reading) {
        const double next = clock.uptime();
        ASSERT_GE(next, last);
        last = next;
    }
}

// The engine starts with 0 as the time of the last gesture. So it accepts its first gesture only if
// the uptime exceeds the cooldown.
TEST(SteadyUptimeClock, UptimeStartsAtSystemBoot) {
    EXPECT_GT(SteadyUptimeClock().uptime(), 1.0);
}

} // namespace
} // namespace glidemap
