// Tests the notifications that the kernel sends the driver when programs open and close a clone.
// The kernel merges consecutive equal notifications.

#include "click_filter_session.h"
#include "deadline.h"
#include "driver_session.h"
#include "event_reader.h"
#include "forwarded_pad.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "real_time.h"
#include "unprivileged.h"
#include "virtual_pad.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <memory>

namespace glidemap::test {
namespace {

class CloneReadersTest : public testing::Test {
protected:
    int open() const { return ::open(clone.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC); }

    const VirtualPad pad{ordinaryPad()};
    DriverSession session;
    ClickFilterSession filter{session};
    const driver::Device device = session.devices().at(0);
    std::filesystem::path clone;
};

TEST_F(CloneReadersTest, TouchpadIsGrabbedEvenIfOneOfTwoReadersClosesTheClone) {
    filter.switchOn(true);
    clone = waitForClone();
    int reader = -1;
    {
        const Punctual beforeTheDriver;
        reader = open();
        const int other = open();
        close(other);
    }
    ASSERT_GE(reader, 0);
    filter.waitUntilIntroduced();
    EXPECT_EQ(filter.obstacle(device), "");
    close(reader);
}

// If the driver missed that a program closed the clone, it would still count the program as a
// reader and grab the touchpad. No program would then receive the touchpad's events.
TEST_F(CloneReadersTest, TwoProgramsThatOpenAndCloseTheCloneDoNotCountAsReaders) {
    filter.switchOn(true);
    clone = waitForClone();
    {
        const Punctual beforeTheDriver;
        const int first = open();
        // The kernel merges identical consecutive notifications. The test opens another node in
        // between, so that the clone's two openings cause two notifications.
        close(::open(pad.node().c_str(), O_RDONLY | O_CLOEXEC));
        const int second = open();
        close(first);
        close(second);
    }
    filter.waitUntilIntroduced();
    EXPECT_EQ(filter.obstacle(device), "no program has opened the touchpad's clone");
}

// Runs the driver as a user who may read the touchpad but not its clone, so that the driver cannot
// watch the clone's node.
class UnwatchedCloneTest : public testing::Test {
protected:
    UnwatchedCloneTest() {
        constexpr mode_t openToAll = 0666;
        EXPECT_EQ(chmod(pad.node().c_str(), openToAll), 0);
        EXPECT_EQ(chmod("/dev/uinput", openToAll), 0);
        const Unprivileged unprivileged;
        session = std::make_unique<DriverSession>();
        filter = std::make_unique<ClickFilterSession>(*session);
        device = session->devices().at(0);
    }

    VirtualPad pad{ordinaryPad()};
    EventReader others{pad.node()};
    std::unique_ptr<DriverSession> session;
    std::unique_ptr<ClickFilterSession> filter;
    driver::Device device = nullptr;
};

TEST_F(UnwatchedCloneTest, TouchpadWithAMissedReaderKeepsWorkingAndIsGrabbedOnARetry) {
    filter->switchOn(true);
    std::unique_ptr<EventReader> reader;
    {
        const std::filesystem::path clone = waitForClone();
        // Keeps the driver's thread from running between the two openings, so the kernel merges the
        // notifications.
        const Punctual beforeTheDriver;
        reader = std::make_unique<EventReader>(clone);
        close(open(clone.c_str(), O_RDONLY | O_CLOEXEC));
    }
    filter->waitUntilIntroduced();
    ASSERT_EQ(filter->obstacle(device), "no program has opened the touchpad's clone");
    EXPECT_TRUE(reader->waitUntilGone());
    reader.reset();
    pad.write(fingerDown(0, 7, 1000, 500));
    pad.write(fingerUp(0));
    EXPECT_TRUE(contains(others.readUntil({EV_ABS, ABS_MT_TRACKING_ID, -1}),
                         {EV_ABS, ABS_MT_TRACKING_ID, 7}));

    // The driver creates another clone when the touchpad is used after the retry delay has passed.
    const Deadline deadline;
    while (cloneNodes().empty() && !deadline.passed()) {
        session->settle(pad);
        others.readUntil(markerUp);
    }
    reader = std::make_unique<EventReader>(waitForClone());
    filter->waitUntilIntroduced();
    EXPECT_EQ(filter->obstacle(device), "");
    pad.write(fingerDown(0, 8, 1000, 500));
    session->settle(pad);
    EXPECT_TRUE(reader->isTouched());
    EXPECT_TRUE(others.isQuiet());
}

} // namespace
} // namespace glidemap::test
