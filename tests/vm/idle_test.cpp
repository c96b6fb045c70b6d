// Tests that the driver sleeps while no finger touches a touchpad: it wakes only for events of its
// touchpads.

#include "driver_session.h"
#include "ordinary_pad.h"
#include "threads.h"
#include "virtual_pad.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <unistd.h>

#include <array>
#include <map>

namespace glidemap::test {
namespace {

// Describes a touchscreen, which the driver ignores.
PadShape notATouchpad() {
    PadShape shape = ordinaryPad();
    shape.name = "Not a Touchpad";
    shape.product = 0x0003;
    shape.properties = {INPUT_PROP_DIRECT};
    return shape;
}

// Simulates another program that uses another device: moves a finger and reads the event.
void workWith(VirtualPad& device, int count) {
    const int reader = open(device.node().c_str(), O_RDONLY | O_CLOEXEC);
    ASSERT_GE(reader, 0);
    std::array<input_event, 64> events{};
    for (int step = 1; step <= count; ++step) {
        device.write(fingerMove(0, step % ordinaryWidth, step % ordinaryHeight));
        ASSERT_GT(read(reader, events.data(), sizeof events), 0);
    }
    close(reader);
}

std::map<int, std::int64_t> sleeps(const std::vector<int>& threads) {
    std::map<int, std::int64_t> counts;
    for (const int thread : threads) {
        counts[thread] = sleepsOf(thread);
    }
    return counts;
}

TEST(IdleTest, DriverSleepsWhileNoFingerTouches) {
    VirtualPad pad(ordinaryPad());
    VirtualPad second(otherPad());
    VirtualPad busy(notATouchpad());
    DriverSession session;
    ASSERT_EQ(session.threads().size(), 1U) << "one thread serves all pads";
    session.play(pad, {fingerDown(0, 7, 1000, 500), fingerUp(0)});
    session.settle(second);
    ASSERT_TRUE(session.waitUntilAsleep());

    const auto before = sleeps(session.threads());
    workWith(busy, 50000);
    EXPECT_EQ(sleeps(session.threads()), before);

    // This shows that the counter increases when the driver wakes.
    session.play(pad, {fingerDown(0, 8, 1000, 500)});
    ASSERT_TRUE(session.waitUntilAsleep());
    EXPECT_NE(sleeps(session.threads()), before);
}

TEST(IdleTest, DriverSleepsWhileAFingerRests) {
    VirtualPad pad(ordinaryPad());
    VirtualPad busy(notATouchpad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, 1000, 500)});
    ASSERT_TRUE(session.waitUntilAsleep());

    const auto before = sleeps(session.threads());
    workWith(busy, 5000);
    EXPECT_EQ(sleeps(session.threads()), before);
}

// The driver waits without polling until a missing touchpad returns.
TEST(IdleTest, DriverSleepsWhileATouchpadIsMissing) {
    VirtualPad pad(ordinaryPad());
    VirtualPad staying(otherPad());
    VirtualPad busy(notATouchpad());
    DriverSession session;
    session.play(pad, {fingerDown(0, 7, 1000, 500)});
    const driver::Device device = session.settle(pad);
    pad.unplug();
    session.waitUntil("an empty report",
                      [&](const DriverSession::Seen& seen) { return seen.lastOf(device).empty(); });
    // udev announces the removal slightly later and wakes the driver once more. A device that is
    // plugged in later is announced after the removal, and VirtualPad's constructor waits for that
    // announcement.
    const VirtualPad next(notATouchpad(), "virtual/next");
    session.settle(staying);
    ASSERT_TRUE(session.waitUntilAsleep());

    const auto before = sleeps(session.threads());
    workWith(busy, 20000);
    EXPECT_EQ(sleeps(session.threads()), before);
}

} // namespace
} // namespace glidemap::test
