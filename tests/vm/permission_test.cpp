// Tests touchpads that the user may not read. udev gives their nodes to root and to a group that
// should have no members.

#include "driver_session.h"
#include "ordinary_pad.h"
#include "process.h"
#include "unprivileged.h"
#include "virtual_pad.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <memory>

namespace glidemap::test {
namespace {

constexpr mode_t readable = 0666;

std::unique_ptr<DriverSession> sessionWithoutRights() {
    const Unprivileged unprivileged;
    return std::make_unique<DriverSession>();
}

TEST(PermissionTest, UnreadableTouchpadsAreCountedButNotListed) {
    const VirtualPad pad(ordinaryPad());
    const VirtualPad other(otherPad());
    const auto session = sessionWithoutRights();
    EXPECT_FALSE(session->isRunning());
    EXPECT_EQ(session->loadError(), "未找到多点触摸设备");
    EXPECT_EQ(session->unreadableTouchpads(), 2);
}

TEST(PermissionTest, ReadableTouchpadWorksNextToAnUnreadableTouchpad) {
    VirtualPad pad(ordinaryPad());
    const VirtualPad closed(otherPad());
    ASSERT_EQ(chmod(pad.node().c_str(), readable), 0);
    const auto session = sessionWithoutRights();
    ASSERT_TRUE(session->isRunning());
    EXPECT_EQ(session->unreadableTouchpads(), 1);
    session->play(pad, {fingerDown(0, 7, 1000, 500)});
    EXPECT_EQ(session->seen().reports.size(), 1U);
}

// The node appears before its access list, so the first attempt to open it may fail.
TEST(PermissionTest, ReconnectedTouchpadResumesWhenAccessIsGrantedLater) {
    VirtualPad pad(ordinaryPad());
    VirtualPad witness(otherPad());
    ASSERT_EQ(chmod(pad.node().c_str(), readable), 0);
    ASSERT_EQ(chmod(witness.node().c_str(), readable), 0);
    const auto session = sessionWithoutRights();
    ASSERT_TRUE(session->isRunning());
    const driver::Device device = session->settle(pad);
    pad.unplug();
    pad.plugIn();
    session->settle(witness);
    EXPECT_FALSE(hasOpen("self", pad.node()));

    ASSERT_EQ(chmod(pad.node().c_str(), readable), 0);
    ASSERT_TRUE(session->waitUntilReading(pad));
    session->play(pad, {fingerDown(0, 7, 1000, 500)});
    EXPECT_EQ(session->settle(pad), device);
    EXPECT_EQ(session->seen().lastOf(device), (SeenContacts{{1, 3, seenX(1000), seenY(500)}}));
}

} // namespace
} // namespace glidemap::test
