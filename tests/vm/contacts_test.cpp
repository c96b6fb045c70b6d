// Tests the contacts that the driver reports for the events of a real kernel. The touchpad is an
// invented one; recordings_test.cpp tests real models.

#include "driver_session.h"
#include "ordinary_pad.h"
#include "virtual_pad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <vector>

namespace glidemap::test {
namespace {

using testing::ElementsAre;

TEST(ContactsTest, ContactStatesAreMakeTouchThenTouchingThenOutOfRange) {
    VirtualPad pad(ordinaryPad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, 1000, 500), fingerMove(0, 1200, 500),
                       fingerMove(0, 1400, 500), fingerUp(0)});

    EXPECT_THAT(session.seen().reportsOf(session.settle(pad)),
                ElementsAre(SeenContacts{{1, 3, seenX(1000), seenY(500)}},
                            SeenContacts{{1, 4, seenX(1200), seenY(500)}},
                            SeenContacts{{1, 4, seenX(1400), seenY(500)}},
                            SeenContacts{{1, 7, seenX(1400), seenY(500)}}));
}

// The kernel reports only changes, so it sends no position for this finger.
TEST(ContactsTest, ReportsAFingerThatLandsWhereTheSlotsPreviousFingerLifted) {
    VirtualPad pad(ordinaryPad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, 1000, 500), fingerUp(0), fingerDown(0, 8, 1000, 500)});

    EXPECT_THAT(session.seen().reportsOf(session.settle(pad)),
                ElementsAre(SeenContacts{{1, 3, seenX(1000), seenY(500)}},
                            SeenContacts{{1, 7, seenX(1000), seenY(500)}},
                            SeenContacts{{2, 3, seenX(1000), seenY(500)}}));
}

TEST(ContactsTest, DoesNotReportAFrameThatChangesNoContact) {
    VirtualPad pad(ordinaryPad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, 1000, 500),
                       {{EV_KEY, BTN_TOUCH, 1}},
                       {{EV_ABS, ABS_X, 1000}, {EV_ABS, ABS_Y, 500}},
                       fingerMove(0, 1000, 500)});

    EXPECT_THAT(session.seen().reportsOf(session.settle(pad)),
                ElementsAre(SeenContacts{{1, 3, seenX(1000), seenY(500)}}));
}

TEST(ContactsTest, PositionsBeyondTheAxisRangeAreClamped) {
    VirtualPad pad(ordinaryPad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, -300, -300), fingerMove(0, 4700, 2700)});

    EXPECT_THAT(session.seen().reportsOf(session.settle(pad)),
                ElementsAre(SeenContacts{{1, 3, 0, 1}}, SeenContacts{{1, 4, 1, 0}}));
}

// The touchpad sent the finger's position before the driver opened it, so only the slot holds the
// position.
TEST(ContactsTest, ReportsThePositionOfAFingerThatTouchedBeforeTheStart) {
    VirtualPad pad(ordinaryPad());
    pad.write(fingerDown(2, 7, 1000, 500));
    DriverSession session;
    session.play(pad, {fingerMove(2, 1000, 700)});

    const SeenContacts last = session.seen().lastOf(session.settle(pad));
    ASSERT_EQ(last.size(), 1U);
    EXPECT_TRUE(last[0].isTouching());
    EXPECT_EQ(last[0].x, seenX(1000));
    EXPECT_EQ(last[0].y, seenY(700));
}

TEST(ContactsTest, TimestampsUseTheKernelsMonotonicClock) {
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_MONOTONIC, &time);
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
    };
    VirtualPad pad(ordinaryPad());
    DriverSession session;
    const double before = now();
    session.play(pad, {fingerDown(0, 7, 1000, 500), fingerUp(0)});
    const double after = now();

    const auto reports = session.seen().reports;
    ASSERT_EQ(reports.size(), 2U);
    constexpr double microsecond = 1e-6; // the resolution of event times, in seconds
    EXPECT_GE(reports[0].timestamp, before - microsecond);
    EXPECT_GE(reports[1].timestamp, reports[0].timestamp);
    EXPECT_LE(reports[1].timestamp, after);
}

TEST(ContactsTest, TwoTouchpadsAreTwoDevices) {
    VirtualPad left(ordinaryPad(), "virtual/left");
    VirtualPad right(ordinaryPad(), "virtual/right");
    VirtualPad other(otherPad());
    DriverSession session;
    const driver::Device leftDevice = session.settle(left);
    const driver::Device rightDevice = session.settle(right);
    const driver::Device otherDevice = session.settle(other);
    EXPECT_NE(leftDevice, rightDevice);
    EXPECT_NE(leftDevice, otherDevice);
    EXPECT_NE(rightDevice, otherDevice);

    session.play(left, {fingerDown(0, 7, 1000, 500)});
    session.play(right, {fingerDown(0, 7, 2000, 600)});
    session.play(other, {fingerDown(1, 7, 3000, 700)});
    session.play(left, {fingerMove(0, 1100, 500)});
    session.play(right, {fingerUp(0)});
    session.play(left, {fingerDown(1, 8, 1500, 500)});
    session.play(other, {fingerMove(1, 3100, 700)});

    const auto seen = session.seen();
    EXPECT_THAT(seen.reportsOf(leftDevice),
                ElementsAre(SeenContacts{{1, 3, seenX(1000), seenY(500)}},
                            SeenContacts{{1, 4, seenX(1100), seenY(500)}},
                            SeenContacts{{1, 4, seenX(1100), seenY(500)},
                                         {2, 3, seenX(1500), seenY(500)}}));
    EXPECT_THAT(seen.reportsOf(rightDevice),
                ElementsAre(SeenContacts{{1, 3, seenX(2000), seenY(600)}},
                            SeenContacts{{1, 7, seenX(2000), seenY(600)}}));
    EXPECT_THAT(seen.reportsOf(otherDevice),
                ElementsAre(SeenContacts{{1, 3, seenX(3000), seenY(700)}},
                            SeenContacts{{1, 4, seenX(3100), seenY(700)}}));
}

TEST(ContactsTest, StoppedSessionReportsNothing) {
    VirtualPad pad(ordinaryPad());
    {
        DriverSession session;
        session.play(pad, {fingerDown(0, 7, 1000, 500)});
    }
    DriverSession again;
    pad.write(fingerUp(0));
    again.settle(pad);
    again.forget();
    again.play(pad, {fingerDown(0, 8, 3000, 500)});

    const SeenContacts last = again.seen().lastOf(again.settle(pad));
    ASSERT_EQ(last.size(), 1U);
    EXPECT_EQ(last[0].state, 3);
    EXPECT_EQ(last[0].x, seenX(3000));
    EXPECT_EQ(again.seen().reports.size(), 1U); // the stopped session adds no report
}

TEST(ContactsTest, IgnoresDevicesOtherThanTouchpads) {
    PadShape screen = ordinaryPad();
    screen.properties = {INPUT_PROP_DIRECT};
    PadShape withoutSlots = ordinaryPad();
    withoutSlots.axes.erase(ABS_MT_SLOT);
    PadShape buttons = ordinaryPad();
    buttons.axes.clear();
    PadShape penTablet = ordinaryPad();
    penTablet.keys.insert(BTN_TOOL_PEN);
    const VirtualPad devices[] = {VirtualPad(screen), VirtualPad(withoutSlots), VirtualPad(buttons),
                                  VirtualPad(penTablet)};
    for (const VirtualPad& device : devices) {
        ASSERT_TRUE(device.isPlugged());
    }
    DriverSession session;
    EXPECT_FALSE(session.isRunning());
    EXPECT_EQ(session.unreadableTouchpads(), 0);
}

TEST(ContactsTest, ReportsAnErrorWithoutATouchpad) {
    DriverSession session;
    EXPECT_FALSE(session.isRunning());
    EXPECT_EQ(session.loadError(), "未找到多点触摸设备");
    EXPECT_EQ(session.unreadableTouchpads(), 0);
}

} // namespace
} // namespace glidemap::test
