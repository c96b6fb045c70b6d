// Tests a touchpad of each recorded description, with a finger in each slot at a known position.

#include "driver_session.h"
#include "recorded_pad.h"
#include "recordings.h"
#include "virtual_pad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <ostream>
#include <set>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

struct Row {
    const char* file;
    std::int32_t slots; // 0: the driver ignores the device
};

std::ostream& operator<<(std::ostream& output, const Row& row) {
    return output << row.file;
}

const Row rows[] = {
    {"tablets/Wacom Bamboo 16FG 4x5 Finger.desc", 16},
    {"tablets/Wacom Bamboo 2FG 4x5 Finger.desc", 2},
    {"tablets/Wacom ISDv4 E6 Finger.desc", 0}, // a touchscreen
    {"tablets/Wacom Intuos5 touch L Finger.desc", 16},
    {"tablets/Wacom Intuos5 touch M Finger.desc", 16},
    {"tablets/Wacom Intuos5 touch S Finger.desc", 16},
    {"touchpads/AlpsPS2 ALPS GlidePoint.desc", 2},
    {"touchpads/AlpsPS2-ALPS-DualPoint-TouchPad.desc", 2},
    {"touchpads/ETPS2 Elantech Touchpad-ASUS-N500JK.desc", 5},
    {"touchpads/ETPS2 Elantech Touchpad.Dell-Inspiron-7520.desc", 2},
    {"touchpads/ETPS2 Elantech Touchpad.desc", 2},
    {"touchpads/Logitech Rechargeable Touchpad T650.desc", 10},
    {"touchpads/Logitech Wireless Touchpad.desc", 4},
    {"touchpads/SynPS2 Synaptics TouchPad-fdo23890.desc", 0}, // no slots
    {"touchpads/SynPS2 Synaptics TouchPad.desc", 2},
    {"touchpads/SynPS2 Synaptics TouchPad.hp8470p.desc", 2},
    {"touchpads/SynPS2 Synaptics TouchPad.lenovo-p50.desc", 2},
};

// Returns the position of the slot's contact on each axis, as a share of the axis: from 0 for the
// first slot to 1 for the last.
float share(std::int32_t slot, std::int32_t slots) {
    return static_cast<float>(slot) / static_cast<float>(slots - 1);
}

std::int32_t onAxis(const PadAxis& axis, float share) {
    return axis.minimum +
           static_cast<std::int32_t>(static_cast<float>(axis.maximum - axis.minimum) * share);
}

// Puts a finger in each slot, along the diagonal from the upper left corner, with a pressure in the
// middle of its range.
EventFrame fingersOnTheDiagonal(const PadShape& shape) {
    EventFrame frame;
    const auto set = [&frame](std::uint16_t code, std::int32_t value) {
        frame.push_back({EV_ABS, code, value});
    };
    for (std::int32_t slot = 0; slot < shape.slotCount(); ++slot) {
        set(ABS_MT_SLOT, slot);
        set(ABS_MT_TRACKING_ID, 100 + slot);
        set(ABS_MT_POSITION_X,
            onAxis(shape.axes.at(ABS_MT_POSITION_X), share(slot, shape.slotCount())));
        set(ABS_MT_POSITION_Y,
            onAxis(shape.axes.at(ABS_MT_POSITION_Y), share(slot, shape.slotCount())));
        if (const auto pressure = shape.axes.find(ABS_MT_PRESSURE); pressure != shape.axes.end()) {
            set(ABS_MT_PRESSURE, onAxis(pressure->second, 0.5F));
        }
    }
    return frame;
}

EventFrame allUp(const PadShape& shape) {
    EventFrame frame;
    for (std::int32_t slot = 0; slot < shape.slotCount(); ++slot) {
        frame.push_back({EV_ABS, ABS_MT_SLOT, slot});
        frame.push_back({EV_ABS, ABS_MT_TRACKING_ID, -1});
    }
    return frame;
}

class DescriptionTest : public testing::TestWithParam<Row> {};

TEST_P(DescriptionTest, DescribedTouchpadReportsAFingerInEachSlot) {
    GLIDEMAP_NEEDS_RECORDINGS();
    const Row& row = GetParam();
    const PadShape shape = shapeToday(readRecordedPad(recordingsFolder() / row.file));
    ASSERT_TRUE(shape.described());
    VirtualPad pad(shape);
    ASSERT_TRUE(pad.isPlugged());
    DriverSession session;
    ASSERT_EQ(session.isRunning(), row.slots != 0);
    if (row.slots == 0) {
        return;
    }
    ASSERT_EQ(shape.slotCount(), row.slots);
    session.play(pad, {fingersOnTheDiagonal(shape), allUp(shape)});

    const auto reports = session.seen().reportsOf(session.settle(pad));
    ASSERT_EQ(reports.size(), 2U);
    ASSERT_EQ(reports[0].size(), static_cast<std::size_t>(row.slots));
    std::set<std::int32_t> identifiers;
    const float unit = 1.0F / 600; // slightly more than one unit of the coarsest axis (660 units)
    for (std::int32_t slot = 0; slot < row.slots; ++slot) {
        const SeenContact& contact = reports[0][static_cast<std::size_t>(slot)];
        EXPECT_EQ(contact.state, 3);
        EXPECT_NEAR(contact.x, share(slot, row.slots), unit);
        EXPECT_NEAR(contact.y, 1 - share(slot, row.slots), unit);
        identifiers.insert(contact.identifier);
    }
    EXPECT_EQ(reports[0].front().x, 0.0F);
    EXPECT_EQ(reports[0].front().y, 1.0F);
    EXPECT_EQ(reports[0].back().x, 1.0F);
    EXPECT_EQ(reports[0].back().y, 0.0F);
    EXPECT_EQ(identifiers.size(), static_cast<std::size_t>(row.slots));

    ASSERT_EQ(reports[1].size(), static_cast<std::size_t>(row.slots));
    for (std::size_t index = 0; index < reports[1].size(); ++index) {
        EXPECT_EQ(reports[1][index].identifier, reports[0][index].identifier);
        EXPECT_EQ(reports[1][index].state, 7);
    }
}

INSTANTIATE_TEST_SUITE_P(Descriptions, DescriptionTest, testing::ValuesIn(rows),
                         [](const auto& instance) { return testName(instance.param.file); });

TEST(DescriptionsTest, EachTouchpadDescriptionHasATestRow) {
    GLIDEMAP_NEEDS_RECORDINGS();
    std::set<std::string> named;
    for (const Row& row : rows) {
        named.insert(row.file);
    }
    EXPECT_EQ(named, recordingsEndingIn(".desc"));
}

} // namespace
} // namespace glidemap::test
