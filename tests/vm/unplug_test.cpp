// Tests touchpads that are unplugged and reconnected. If a touchpad is unplugged while a finger
// touches it, the driver reports that no finger touches it any more. When the touchpad is connected
// again, the driver reports its fingers as before. The driver ignores another touchpad that is
// connected in the meantime.

#include "driver_session.h"
#include "ordinary_pad.h"
#include "process.h"
#include "virtual_pad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
namespace glidemap::test {
namespace {

bool waitForEmptyReport(DriverSession& session, driver::Device device, std::size_t after) {
    return session.waitUntil("an empty report", [&](const DriverSession::Seen& seen) {
        const auto reports = seen.reportsOf(device);
        return reports.size() > after && reports.back().empty();
    });
}

TEST(UnplugTest, UnpluggingEndsTheTouchWithOneEmptyReport) {
    VirtualPad pad(ordinaryPad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 500)});
    const driver::Device device = session.settle(pad);
    pad.unplug();
    ASSERT_TRUE(waitForEmptyReport(session, device, 2));
    EXPECT_EQ(session.seen().reports.size(), 3U);
}

TEST(UnplugTest, ReconnectedTouchpadIsTheSameDevice) {
    VirtualPad pad(ordinaryPad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, 1000, 500)});
    const driver::Device device = session.settle(pad);
    for (const std::int32_t x : {1500, 2500, 3500}) {
        pad.unplug();
        ASSERT_TRUE(waitForEmptyReport(session, device, 1));
        session.forget();
        pad.plugIn();
        ASSERT_TRUE(session.waitUntilReading(pad));
        session.play(pad, {fingerDown(0, 9, x, 500), fingerMove(0, x + 10, 500)});
        EXPECT_EQ(session.settle(pad), device);

        const auto reports = session.seen().reportsOf(device);
        ASSERT_EQ(reports.size(), 2U);
        ASSERT_EQ(reports[0].size(), 1U);
        EXPECT_EQ(reports[0][0].state, 3);
        EXPECT_EQ(reports[0][0].x, seenX(x));
        ASSERT_EQ(reports[1].size(), 1U);
        EXPECT_EQ(reports[1][0].state, 4);
        EXPECT_EQ(reports[1][0].identifier, reports[0][0].identifier);
    }
}

TEST(UnplugTest, UnpluggingAnUntouchedTouchpadReportsNothing) {
    VirtualPad pad(ordinaryPad());
    VirtualPad witness(otherPad());
    DriverSession session;
    session.settle(pad);
    pad.unplug();
    // The driver reads events in order, so it handles the removal before the touchpad's return.
    pad.plugIn();
    ASSERT_TRUE(session.waitUntilReading(pad));
    session.settle(pad);
    session.settle(witness);
    EXPECT_TRUE(session.seen().reports.empty());
}

TEST(UnplugTest, AnotherTouchpadDoesNotReplaceAMissingTouchpad) {
    VirtualPad pad(ordinaryPad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, 1000, 500)});
    const driver::Device device = session.settle(pad);
    pad.unplug();
    ASSERT_TRUE(waitForEmptyReport(session, device, 1));
    session.forget();

    VirtualPad other(otherPad());
    pad.plugIn();
    // When the driver reads the reconnected touchpad, it has also detected the other one, which was
    // plugged in earlier.
    ASSERT_TRUE(session.waitUntilReading(pad));
    EXPECT_FALSE(hasOpen("self", other.node()));
    other.write(fingerDown(0, 7, 3000, 500));
    session.play(pad, {fingerDown(0, 8, 2000, 500)});

    const auto seen = session.seen();
    ASSERT_EQ(seen.reports.size(), 1U);
    EXPECT_EQ(seen.reports[0].device, device);
    EXPECT_EQ(seen.reports[0].contacts.at(0).x, seenX(2000));
}

TEST(UnplugTest, TouchpadsOfTheSameModelAreIdentifiedByTheirPorts) {
    VirtualPad left(ordinaryPad(), "virtual/left");
    VirtualPad right(ordinaryPad(), "virtual/right");
    DriverSession session;
    const driver::Device leftDevice = session.settle(left);
    const driver::Device rightDevice = session.settle(right);
    left.unplug();
    right.unplug();
    right.plugIn();
    ASSERT_TRUE(session.waitUntilReading(right));
    left.plugIn();
    ASSERT_TRUE(session.waitUntilReading(left));
    EXPECT_EQ(session.settle(left), leftDevice);
    EXPECT_EQ(session.settle(right), rightDevice);
}

TEST(UnplugTest, UnpluggingATouchpadDoesNotAffectAnotherTouchpad) {
    VirtualPad going(ordinaryPad());
    VirtualPad staying(otherPad());
    DriverSession session;
    session.play(going, {fingerDown(0, 7, 1000, 500)});
    session.play(staying, {fingerDown(0, 7, 2000, 500)});
    const driver::Device device = session.settle(going);
    going.unplug();
    ASSERT_TRUE(waitForEmptyReport(session, device, 1));
    session.play(staying, {fingerMove(0, 2100, 500)});

    const auto reports = session.seen().reportsOf(session.settle(staying));
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[1], (SeenContacts{{1, 4, seenX(2100), seenY(500)}}));
}

} // namespace
} // namespace glidemap::test
