#include "input/touch_frame.h"
#include "kit/records.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using Touches = std::vector<TouchPoint>;

TouchFrame frameOf(const std::vector<MTTouch>& records) {
    TouchFrame frame{1.5, {}};
    for (const MTTouch& record : records) {
        frame.touches.push_back(touchPoint(record));
    }
    return frame;
}

MTTouch recordInState(std::int32_t state) {
    return test::record(7, 0.5, 0.25, static_cast<MTTouchState>(state));
}

TEST(TouchFrameTest, FingerKeepsItsIdentifierAndItsPositionAsDouble) {
    const TouchPoint point = touchPoint(test::record(-12, 0.1, 0.9));
    EXPECT_EQ(point, (TouchPoint{-12, static_cast<double>(0.1F), static_cast<double>(0.9F), true}));
    EXPECT_NE(point.x, 0.1); // 0.1F as a double is not 0.1
}

TEST(TouchFrameTest, PositionsAreNotClamped) {
    const TouchPoint point = touchPoint(test::record(1, -3, 42));
    EXPECT_EQ(point.x, -3);
    EXPECT_EQ(point.y, 42);
}

TEST(TouchFrameTest, ReportWithoutRecordsIsAFrameWithoutFingers) {
    const TouchFrame frame = frameOf({});
    EXPECT_EQ(frame.touches, Touches());
    EXPECT_EQ(frame.touching(), Touches());
}

TEST(TouchFrameTest, HoveringContactIsPresentButNotTouching) {
    for (const int state : {5, 7, 8, 31, -1}) {
        const TouchFrame frame = frameOf({recordInState(state)});
        EXPECT_EQ(frame.touches, (Touches{{7, 0.5, 0.25, false}})) << state;
        EXPECT_EQ(frame.touching(), Touches()) << state;
    }
}

TEST(TouchFrameTest, TouchingFingersAreReturnedInReportOrderAndTheFrameIsUnchanged) {
    const TouchFrame frame = frameOf({test::record(3, 0.3, 0), recordInState(2),
                                      test::record(1, 0.1, 0, MTTouchState::makeTouch),
                                      recordInState(7), test::record(2, 0.2, 0)});
    std::vector<std::int32_t> ids;
    for (const TouchPoint& touch : frame.touching()) {
        ids.push_back(touch.id);
    }
    EXPECT_EQ(ids, (std::vector{3, 1, 2}));
    EXPECT_EQ(frame.touches.size(), 5U);
    EXPECT_EQ(frame.touching(), frame.touching());
}

TEST(TouchFrameTest, RecordsWithTheSameIdentifierAreBothKept) {
    const TouchFrame frame = frameOf({test::record(7, 0.25, 0.5), test::record(7, 0.75, 0.5)});
    EXPECT_EQ(frame.touching(), (Touches{{7, 0.25, 0.5, true}, {7, 0.75, 0.5, true}}));
}

TEST(TouchFrameTest, OnlyTheDocumentedFieldsAreRead) {
    MTTouch odd = test::record(7, 0.5, 0.25); // every other field is NaN or negative
    MTTouch plain{};
    plain.identifier = 7;
    plain.state = 4;
    plain.normalized.pos = {0.5F, 0.25F};
    EXPECT_EQ(touchPoint(odd), touchPoint(plain));
}

} // namespace
} // namespace glidemap
