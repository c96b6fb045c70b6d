// Tests input that no pad and no hand produces, but that a driver could send. The input must not
// crash or hang the recognizer, or affect the recognition of later input.
#include "kit/live_memory.h"
#include "kit/rows.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/session_recognizer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace glidemap {
namespace {

using namespace test;
using enum GestureType;
using Gestures = std::vector<GestureType>;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double hugeNumber = std::numeric_limits<float>::max();

class SessionHostileTest : public testing::Test {
protected:
    SessionHostileTest() {
        recognizer->onGesture = [this](GestureType gesture) {
            reported.push_back(gesture);
            EXPECT_LT(reported.size(), 1'000'000U);
        };
    }

    void report(double time, std::vector<TouchPoint> touches) {
        recognizer->process({time, std::move(touches)});
    }

    void play(const Script& script) {
        for (const TouchFrame& frame : script.frames()) {
            recognizer->process(frame);
        }
    }

    // Lifts all fingers at `time`, and checks that a later clean tap is recognised.
    void expectStillWorks(double time) {
        report(time, {});
        reported.clear();
        probeTime = std::max(probeTime, time) + 10; // far enough apart not to make a double tap
        play(fingers(3).startingAt(probeTime).down().hold(0.1).up());
        EXPECT_EQ(reported, Gestures{threeFingerTap});
        reported.clear();
    }

    VirtualTime virtualTime;
    std::shared_ptr<SessionRecognizer> recognizer =
        SessionRecognizer::create(virtualTime.delayedWork());
    Gestures reported;
    double probeTime = 0;
};

TEST_F(SessionHostileTest, FingerWithoutAFinitePositionIsIgnored) {
    for (const double odd : {nan, infinity, -infinity}) {
        report(0, {{1, odd, 0.5, true}, {2, 0.5, odd, true}, {3, odd, odd, true}});
        report(0.1, {});
        EXPECT_EQ(reported, Gestures());
        // A finger without a finite position does not count even beside a finger that has one.
        report(1, {{1, odd, 0.5, true}, {2, 0.1, 0.1, true}});
        report(1.1, {});
        EXPECT_EQ(reported, Gestures{cornerTapBottomLeft});
        expectStillWorks(2);
    }
}

TEST_F(SessionHostileTest, FingerWithANonFinitePositionKeepsItsLastFinitePosition) {
    for (const double odd : {nan, infinity, -infinity}) {
        report(0, {{1, 0.3, 0.5, true}, {2, 0.4, 0.5, true}});
        report(0.1, {{1, odd, 0.5, true}, {2, 0.4, odd, true}});
        report(0.2, {});
        EXPECT_EQ(reported, Gestures{twoFingerTap});
        expectStillWorks(1);
    }
}

TEST_F(SessionHostileTest, FingerLandsAtItsFirstFinitePosition) {
    report(0, {{1, nan, 0.5, true}, {2, 0.4, 0.5, true}});
    report(0.1, {{1, 0.3, 0.5, true}, {2, 0.4, 0.5, true}});
    report(0.2, {});
    EXPECT_EQ(reported, Gestures{twoFingerTap});
}

TEST_F(SessionHostileTest, FingerFarOutsideThePadMakesNoGesture) {
    report(0, {{1, -hugeNumber, hugeNumber, true}});
    report(0.1, {{1, hugeNumber, -hugeNumber, true}});
    report(0.2, {{1, 0, 0, true}});
    report(0.3, {});
    EXPECT_EQ(reported, Gestures());
    expectStillWorks(1);
}

TEST_F(SessionHostileTest, NonFiniteTimesDoNotAffectLaterTouches) {
    for (const double odd : {nan, infinity, -infinity}) {
        report(odd, {{1, 0.3, 0.5, true}, {2, 0.4, 0.5, true}});
        report(odd, {{1, 0.3, 0.5, true}, {2, 0.4, 0.5, true}});
        report(odd, {});
        report(5, {{1, 0.3, 0.5, true}, {2, 0.4, 0.5, true}});
        report(odd, {{1, 0.8, 0.5, true}, {2, 0.9, 0.5, true}});
        report(5.1, {});
        reported.clear();
        expectStillWorks(20);
    }
}

TEST_F(SessionHostileTest, TimeMayGoBackwards) {
    for (int round = 0; round < 100; ++round) {
        report(100 - round, {{1, 0.3, 0.5, true}, {2, 0.4, 0.5, true}});
        report(50 - round, {{1, 0.3, 0.5, true}});
        report(-round, {});
    }
    EXPECT_LE(reported.size(), 100U); // at most one gesture per session
    expectStillWorks(1000);
}

TEST_F(SessionHostileTest, ExtremeIdentifiersAreAccepted) {
    constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    for (const double time : {0.0, 0.1}) {
        report(time, {{lowest, 0.3, 0.5, true}, {highest, 0.4, 0.5, true}, {0, 0.5, 0.5, true}});
    }
    report(0.2, {});
    EXPECT_EQ(reported, Gestures{threeFingerTap});
}

TEST_F(SessionHostileTest, AThousandRecordsOfOneFingerInAReportMakeNoGesture) {
    const std::vector<TouchPoint> touches(1000, TouchPoint{7, 0.1, 0.1, true});
    for (int frame = 0; frame < 20; ++frame) {
        report(frame * 0.01, touches);
    }
    report(0.2, {});
    EXPECT_EQ(reported, Gestures()); // a thousand fingers make no gesture
    expectStillWorks(1);
}

TEST_F(SessionHostileTest, TenThousandContactsInAReportMakeNoGestureAndUseLimitedMemory) {
    std::vector<TouchPoint> touches;
    for (std::int32_t id = 0; id < 10'000; ++id) {
        touches.push_back({id, id / 10'000.0, 0.5, true});
    }
    const std::size_t before = liveMemory();
    for (int frame = 0; frame < 20; ++frame) {
        report(frame * 0.01, touches);
    }
    touches.resize(5'000);
    report(0.3, touches);
    report(0.4, {});
    EXPECT_EQ(reported, Gestures());
    EXPECT_LT(liveMemory() - before, 4'000'000U);
    expectStillWorks(1);
}

TEST_F(SessionHostileTest, MemoryIsBoundedInASessionOfAMillionFrames) {
    std::mt19937 random(1);
    const auto place = [&] {
        return static_cast<double>(random() % 1000) / 1000;
    };
    double time = 0;
    const auto play = [&](int frames) {
        TouchFrame moving{time, {{1, 0, 0, true}, {2, 0, 0, true}}};
        for (int frame = 0; frame < frames; ++frame) {
            for (TouchPoint& touch : moving.touches) {
                touch.x = place();
                touch.y = place();
            }
            moving.timestamp = time += 0.008;
            recognizer->process(moving);
        }
    };
    play(5'000); // the paths reach their maximum length
    const std::size_t full = liveMemory();
    play(1'000'000);
    EXPECT_LE(liveMemory(), full + 10'000);
    EXPECT_EQ(reported, Gestures());
    expectStillWorks(time);
}

TEST_F(SessionHostileTest, ThousandsOfTapsBesideARestingFingerAreAllReported) {
    double time = 0;
    const TouchPoint resting = {1, 0.5, 0.5, true};
    std::int32_t id = 2;
    const auto tap = [&](int taps) {
        for (int one = 0; one < taps; ++one) {
            report(time + 0.3, {resting, {++id, 0.7, 0.5, true}});
            report(time + 0.4, {resting});
            time += 0.4;
        }
    };
    report(0, {resting});
    tap(1'000);
    reported.reserve(20'000);
    const std::size_t before = liveMemory();
    tap(10'000);
    EXPECT_EQ(reported, Gestures(11'000, fixAndTapRight));
    EXPECT_LE(liveMemory(), before + 10'000);
    report(time + 0.1, {});
    EXPECT_EQ(reported.size(), 11'000U);
    expectStillWorks(time + 1);
}

// The memory of a long and crowded session is freed at its end.
TEST_F(SessionHostileTest, MemoryDoesNotGrowFromSessionToSession) {
    double time = 0;
    std::int32_t id = 0;
    const auto crowd = [&] {
        for (int frame = 0; frame < 400; ++frame) {
            report(time += 0.01, {{1, 0.5, 0.5, true}, {++id + 1, 0.7, 0.5, true}});
        }
        report(time += 0.01, {});
        reported.clear();
    };
    crowd();
    crowd();
    const std::size_t before = liveMemory();
    for (int session = 0; session < 50; ++session) {
        crowd();
    }
    EXPECT_LE(liveMemory(), before + 10'000);
}

TEST_F(SessionHostileTest, FrameDoesNotAllocateAfterTheFirstSession) {
    const auto fingersAt = [](double x) {
        return TouchFrame{x,
                          {{1, x, 0.2, true},
                           {2, x, 0.4, true},
                           {3, x, 0.6, true},
                           {4, x, 0.8, true},
                           {5, x, 0.9, true}}};
    };
    const auto session = [&](double start) {
        for (int frame = 0; frame < 100; ++frame) {
            recognizer->process(fingersAt(start + frame * 0.001));
        }
        recognizer->process({start + 1, {}});
    };
    session(0);
    const std::vector<TouchFrame> frames = [&] {
        std::vector<TouchFrame> made;
        for (int frame = 0; frame < 100; ++frame) {
            made.push_back(fingersAt(10 + frame * 0.001));
        }
        made.push_back({20, {}});
        return made;
    }();
    const std::size_t before = allocationCount();
    for (const TouchFrame& frame : frames) {
        recognizer->process(frame);
    }
    EXPECT_EQ(allocationCount(), before);
}

} // namespace
} // namespace glidemap
