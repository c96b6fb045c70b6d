#include "drivers/contact/contact_geometry.h"
#include "pad_events.h"

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

namespace glidemap::test {
namespace {

constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();

TEST(ContactGeometry, FractionIsThePositionWithinTheAxisRange) {
    struct Row {
        const char* name;
        AxisRange axis;
        std::int32_t value;
        double expected;
    };
    const Row rows[] = {
        {"the lower end", {1000, 3000, 0}, 1000, 0},
        {"below it", {1000, 3000, 0}, 999, 0},
        {"far below it", {1000, 3000, 0}, smallest, 0},
        {"a quarter", {1000, 3000, 0}, 1500, 0.25},
        {"the upper end", {1000, 3000, 0}, 3000, 1},
        {"above it", {1000, 3000, 0}, 3001, 1},
        {"a negative lower end", {-100, 100, 0}, 0, 0.5},
        {"the largest possible axis", {smallest, largest, 0}, largest, 1},
        {"an axis without extent", {5, 5, 0}, 5, 0.5},
        {"an axis whose ends are swapped", {10, 0, 0}, 3, 0.5},
    };
    for (const Row& row : rows) {
        EXPECT_DOUBLE_EQ(fraction(row.axis, row.value), row.expected) << row.name;
    }
}

TEST(ContactGeometry, ClampsPositionsAndFlipsY) {
    Pad pad(padWithSlots(2));
    pad.down(1).place(-20, -20).slot(1).down(2).place(130, 130).sync();
    EXPECT_EQ(pad.reports, std::vector<std::string>{"1.00 1:make(0.00,1.00) 2:make(1.00,0.00)"});
}

TEST(ContactGeometry, AxisWithoutExtentYieldsTheMiddle) {
    PadDescription description = padWithSlots(2);
    description.x = {7, 7, 0};
    description.y = {9, 3, 0};
    Pad pad(description);
    pad.down(1).place(7, 9).sync();
    EXPECT_EQ(pad.reports, std::vector<std::string>{"1.00 1:make(0.50,0.50)"});
}

TEST(ContactGeometry, MillimetresAreZeroForAnAxisWithoutResolution) {
    PadDescription description = padWithSlots(2);
    description.y.resolution = 0;
    Pad pad(description);
    pad.down(1).place(20, 30).sync();
    pad.place(40, 40).sync();
    const MTTouch& record = pad.lastRecords.at(0);
    EXPECT_FLOAT_EQ(record.absolute.pos.x, 20);
    EXPECT_FLOAT_EQ(record.absolute.pos.y, 0);
    EXPECT_NEAR(record.absolute.vel.x, 1000, 0.01); // 10 mm in 10 ms
    EXPECT_FLOAT_EQ(record.absolute.vel.y, 0);
}

TEST(ContactGeometry, AbsolutePositionsAreMeasuredFromTheBottomLeft) {
    Pad pad(padWithSlots(2));
    pad.down(1).place(20, 30).sync();
    EXPECT_FLOAT_EQ(pad.lastRecords.at(0).absolute.pos.x, 10);
    EXPECT_FLOAT_EQ(pad.lastRecords.at(0).absolute.pos.y, 35);
}

TEST(ContactGeometry, VelocityIsMeasuredBetweenTwoReports) {
    Pad pad(padWithSlots(2));
    const auto velocity = [&pad] {
        return pad.lastRecords.back().normalized.vel;
    };
    pad.at(1).down(1).place(10, 50).sync();
    EXPECT_EQ(velocity().x, 0);
    pad.at(1.5).place(30, 40).sync();
    EXPECT_FLOAT_EQ(velocity().x, 0.4F);
    EXPECT_FLOAT_EQ(velocity().y, 0.2F);
    pad.at(1.5).place(40, 40).sync(); // no time has passed
    EXPECT_EQ(velocity().x, 0);
    pad.at(1.2).place(50, 40).sync(); // time has gone backwards
    EXPECT_EQ(velocity().x, 0);
    pad.at(2.2).up().down(2).place(90, 40).sync(); // another finger in the same slot
    EXPECT_EQ(pad.lastRecords.back().identifier, 2);
    EXPECT_EQ(velocity().x, 0);
}

TEST(ContactGeometry, FillsInSizeAngleAndPressureIfReported) {
    PadDescription description = pressurePad();
    description.touchMajor = AxisRange{0, 255, 10};
    description.touchMinor = AxisRange{0, 255, 0};
    description.orientation = AxisRange{-90, 90, 0};
    Pad pad(description);
    pad.at(2.5).slot(3).down(1).place(10, 10);
    pad.absolute(ABS_MT_TOUCH_MAJOR, 85).absolute(ABS_MT_TOUCH_MINOR, 60);
    pad.absolute(ABS_MT_ORIENTATION, 45).absolute(ABS_MT_PRESSURE, 50).sync();
    const MTTouch record = pad.lastRecords.at(0);
    EXPECT_FLOAT_EQ(record.majorAxis, 8.5F); // millimetres
    EXPECT_FLOAT_EQ(record.minorAxis, 60);   // in the touchpad's own units
    EXPECT_FLOAT_EQ(record.angle, std::numbers::pi_v<float> / 4);
    EXPECT_FLOAT_EQ(record.zTotal, 0.25F);
    EXPECT_FLOAT_EQ(record.zDensity, 50);
    EXPECT_EQ(record.fingerID, 3);
    EXPECT_EQ(record.frame, 1);
    EXPECT_EQ(record.timestamp, 2.5);
}

TEST(ContactGeometry, UprightFingerIsAQuarterTurnFromTheXAxis) {
    struct Row {
        std::int32_t orientation;
        float halfTurns;
    };
    const Row rows[] = {{0, 0.5F}, {1, 0.25F}, {2, 0}, {3, 0}, {-2, 1}, {smallest, 1}};
    PadDescription description = padWithSlots(1);
    description.orientation = AxisRange{-2, 2, 0};
    for (const Row& row : rows) {
        SlotValues values;
        values.orientation = row.orientation;
        MTTouch record{};
        describeContact(description, values, record);
        EXPECT_FLOAT_EQ(record.angle, row.halfTurns * std::numbers::pi_v<float>) << row.orientation;
    }
}

TEST(ContactGeometry, FieldsThatTheTouchpadDoesNotReportAreZero) {
    Pad pad(padWithSlots(2));
    pad.down(1).place(10, 10);
    pad.absolute(ABS_MT_TOUCH_MAJOR, 9).absolute(ABS_MT_ORIENTATION, 9).sync();
    const MTTouch& record = pad.lastRecords.at(0);
    EXPECT_EQ(record.majorAxis, 0);
    EXPECT_EQ(record.minorAxis, 0);
    EXPECT_EQ(record.angle, 0);
    EXPECT_EQ(record.zTotal, 0);
    EXPECT_EQ(record.zDensity, 0);
}

TEST(ContactGeometry, FrameNumberIncreasesWithEachReport) {
    Pad pad(padWithSlots(2));
    pad.sync().down(1).place(10, 10).sync().sync().place(11, 10).sync();
    EXPECT_EQ(pad.lastRecords.at(0).frame, 2);
}

} // namespace
} // namespace glidemap::test
