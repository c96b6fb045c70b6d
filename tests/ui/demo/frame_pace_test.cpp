#include "ui/demo/frame_pace.h"

#include <gtest/gtest.h>

#include <cmath>

namespace glidemap::demo {

namespace {

using std::chrono::duration;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;

double inMilliseconds(nanoseconds time) {
    return duration<double, std::milli>(time).count();
}

TEST(FramePaceTest, PeriodIsAWholeNumberOfScreenFramesAndAtLeast25Milliseconds) {
    struct Row {
        double rate;
        int frames;
    };
    const Row rows[] = {{24, 1}, {30, 1}, {50, 2},  {59.94, 2}, {60, 2},
                        {75, 2}, {90, 3}, {120, 4}, {144, 4},   {240, 7}};
    for (const auto& [rate, frames] : rows) {
        EXPECT_NEAR(inMilliseconds(framePeriod(rate)), frames * 1000 / rate, 0.001) << rate;
        EXPECT_GE(framePeriod(rate), minFrame) << rate;
    }
}

TEST(FramePaceTest, AssumesSixtyHertzForAnImplausibleRate) {
    for (const double rate : {0.0, -1.0, 1.0, 1e9, std::nan("")}) {
        EXPECT_EQ(framePeriod(rate), framePeriod(60)) << rate;
    }
}

// A timer fires up to a millisecond late, because its interval is a whole number of milliseconds.
TEST(FramePaceTest, StaysInSyncWithTheScreenDespiteLateTimers) {
    for (const double rate : {60.0, 75.0, 144.0}) {
        const nanoseconds period = framePeriod(rate);
        nanoseconds now{1'000'000'007};
        now += untilNextFrame(now, period);
        for (int frame = 0; frame < 1000; ++frame) {
            const auto beat = now / period;
            const milliseconds wait = untilNextFrame(now, period);
            EXPECT_GE(wait, minFrame) << rate;
            now += wait;
            EXPECT_EQ(now / period, beat + 1) << rate << " at frame " << frame;
        }
    }
}

TEST(FramePaceTest, SkipsAFrameInsteadOfDrawingEarly) {
    const nanoseconds period = framePeriod(60);
    // 21 ms before the frame at 31 * period, which is less than minFrame.
    const nanoseconds late = 30 * period + milliseconds(12);
    const nanoseconds next = late + untilNextFrame(late, period);
    EXPECT_EQ(next / period, 32);
}

} // namespace

} // namespace glidemap::demo
