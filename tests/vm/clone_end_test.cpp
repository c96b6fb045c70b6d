// Kills a program that has grabbed a touchpad: the kernel releases the grab and removes the clone.

#include "forwarded_pad.h"
#include "input_devices.h"
#include "process.h"

#include <gtest/gtest.h>

#include <csignal>
#include <iostream>

namespace glidemap::test {
namespace {

constexpr const char* holding = "holds the touchpad";

// The next test runs this one in another process, which grabs all touchpads until it is killed.
TEST(HoldingProgram, DISABLED_HoldsTheTouchpads) {
    DriverSession session;
    ClickFilterSession filter(session);
    filter.switchOn(true);
    waitForClone();
    filter.waitUntilIntroduced();
    std::cout << holding << std::endl;
    for (;;) {
        pause();
    }
}

TEST(CloneEndTest, KillingTheProgramDuringATouchUngrabsTheTouchpad) {
    VirtualPad pad(ordinaryPad());
    EventReader others(pad.node());
    const std::string self = std::filesystem::read_symlink("/proc/self/exe");
    Process program({self, "--gtest_also_run_disabled_tests",
                     "--gtest_filter=HoldingProgram.DISABLED_HoldsTheTouchpads"});
    EventReader clone(waitForClone());
    ASSERT_TRUE(program.waitForOutput(holding));
    pad.write(together({fingerDown(0, 7, 1000, 500), {leftDown}}));
    EXPECT_TRUE(contains(clone.readUntil(leftDown), leftDown));
    EXPECT_TRUE(others.isQuiet());

    program.send(SIGKILL);
    EXPECT_TRUE(program.waitForEnd());
    EXPECT_TRUE(clone.waitUntilGone());
    EXPECT_TRUE(waitForCloneCount(0));
    pad.write(fingerMove(0, 1100, 500));
    EXPECT_TRUE(contains(others.read(), {EV_ABS, ABS_MT_POSITION_X, 1100}));
}

} // namespace
} // namespace glidemap::test
