#include "kit/rows.h"

#include <gtest/gtest.h>

namespace glidemap::test {
namespace {

using enum GestureType;

const auto tap = fingers(2).down().hold(0.1).up();

TEST(RowsTest, RowWithTheExpectedGesturesHasNoError) {
    const Row row = {"a tap", tap, {twoFingerTap}};
    for (const PerformanceVariant& variant : allVariants()) {
        EXPECT_EQ(mismatch(row, variant), "");
    }
}

TEST(RowsTest, ErrorShowsTheScriptAndTheExpectedAndActualGestures) {
    const Row row = {"two taps are said to be silent", tap.wait(0.5).then(tap), {}};
    EXPECT_EQ(mismatch(row, allVariants().front()),
              "two taps are said to be silent\n"
              "  script:   fingers(2).down().hold(0.1).up().wait(0.5)"
              ".then(fingers(2).down().hold(0.1).up())\n"
              "  variant:  as written\n"
              "  expected: nothing\n"
              "  actual:  \n"
              "    0.1 s: twoFingerTap\n"
              "    0.7 s: twoFingerTap");
}

TEST(RowsTest, MissingGestureIsAnError) {
    const Row row = {"a tap is said to be two", tap, {twoFingerTap, twoFingerTap}};
    EXPECT_NE(mismatch(row, allVariants().front()), "");
}

TEST(RowsTest, DelayedWorkRunsBetweenFramesAndAfterTheLastFrame) {
    const PerformanceStage bound = {Through::recognizer, {2}};
    expectReportedGestures(tap, {{0.1 + 0.45, twoFingerTap}}, bound);
    expectReportedGestures(tap.wait(0.5).then(fingers(3).down().hold(0.1).up()),
                           {{0.1 + 0.45, twoFingerTap}, {0.1 + 0.5 + 0.1, threeFingerTap}}, bound);
}

TEST(RowsTest, EngineDropsGesturesWithinTheCooldown) {
    const auto twice = tap.wait(0.1).then(fingers(3).down().hold(0.1).up());
    EXPECT_EQ(gesturesOf(perform(twice)), (std::vector{twoFingerTap, threeFingerTap}));
    EXPECT_EQ(gesturesOf(perform(twice, {Through::engine, {}})), std::vector{twoFingerTap});
}

} // namespace
} // namespace glidemap::test
