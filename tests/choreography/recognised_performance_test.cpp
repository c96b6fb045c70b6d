// Tests that, with every seed, a performance is recognised as its intended gesture and as no other.

#include "choreography/performance.h"
#include "core/gesture_type.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/session_recognizer.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <string>
#include <vector>

namespace glidemap {

inline void PrintTo(GestureType gesture, std::ostream* out) {
    *out << rawValue(gesture);
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint64_t seeds = 2000;

TouchFrame frameOf(const TimedReport& report) {
    TouchFrame frame{report.time, {}};
    for (const MTTouch& touch : report.touches) {
        frame.touches.push_back(touchPoint(touch));
    }
    return frame;
}

std::vector<GestureType> recognise(const Performance& performance, bool doubleTapIsBound) {
    VirtualTime time;
    std::vector<GestureType> recognised;
    const auto recognizer = SessionRecognizer::create(time.delayedWork());
    recognizer->onGesture = [&](GestureType gesture) {
        recognised.push_back(gesture);
    };
    recognizer->doubleTapBindingExists = [&](int) {
        return doubleTapIsBound;
    };
    for (const TimedReport& report : performance) {
        time.advanceTo(report.time);
        recognizer->process(frameOf(report));
    }
    time.runRemaining();
    return recognised;
}

class RecognisedPerformanceTest : public testing::TestWithParam<GestureType> {};

TEST_P(RecognisedPerformanceTest, PerformanceOfEverySeedIsRecognisedAsTheIntendedGestureOnly) {
    const bool isDoubleTap = category(GetParam()) == GestureCategory::doubleTap;
    for (std::uint64_t seed = 0; seed < seeds; ++seed) {
        ASSERT_THAT(recognise(perform(GetParam(), seed), isDoubleTap), ElementsAre(GetParam()))
            << "seed " << seed;
    }
}

TEST_P(RecognisedPerformanceTest, HoveringFingersMakeNoGesture) {
    Performance performance = perform(GetParam(), 1);
    for (TimedReport& report : performance) {
        for (MTTouch& touch : report.touches) {
            touch.state = static_cast<std::int32_t>(MTTouchState::hoverInRange);
        }
    }
    EXPECT_THAT(recognise(performance, false), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(AllPerformableGestures, RecognisedPerformanceTest,
                         testing::ValuesIn(performableGestures()),
                         [](const auto& row) { return std::string(rawValue(row.param)); });

TEST(DoubleTapPerformanceTest, UnboundDoubleTapIsReportedAsTapAndDoubleTap) {
    EXPECT_THAT(recognise(perform(GestureType::threeFingerDoubleTap, 5), false),
                ElementsAre(GestureType::threeFingerTap, GestureType::threeFingerDoubleTap));
}

TEST(DoubleTapPerformanceTest, SingleTapIsReportedEvenIfTheDoubleTapIsBound) {
    EXPECT_THAT(recognise(perform(GestureType::twoFingerTap, 5), true),
                ElementsAre(GestureType::twoFingerTap));
}

} // namespace
} // namespace glidemap
