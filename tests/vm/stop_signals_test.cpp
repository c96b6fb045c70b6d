// Stops a program, as a terminal does, while it has grabbed a touchpad. The program ungrabs the
// touchpad before it stops, and grabs it again when it continues.

#include "deadline.h"
#include "forwarded_pad.h"
#include "input_devices.h"
#include "process.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <sched.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

namespace glidemap::test {
namespace {

constexpr const char* holding = "holds the touchpad";

// StopSignalsTest runs this test in another process, which grabs the touchpads until it is killed.
// Like the program, that process grabs a touchpad again after the watchdog has ungrabbed it.

TEST(StoppedProgram, DISABLED_HoldsTheTouchpads) {
    // Creates a process group, as a shell does, because SIGTSTP does not stop a process whose
    // process group is orphaned.
    setpgid(0, 0);
    DriverSession session;
    ClickFilterSession filter(session);
    filter.answer([&](const AskedClick& click) {
        if (click.event == driver::clickFilterDisabledByTimeout) {
            filter.switchOn(true);
        }
        return false;
    });
    filter.switchOn(true);
    waitForClone();
    filter.waitUntilIntroduced();
    std::cout << holding << std::endl;
    for (;;) {
        pause();
    }
}

bool waitUntilStopped(pid_t process) {
    const Deadline deadline;
    while (!deadline.passed()) {
        std::ifstream status("/proc/" + std::to_string(process) + "/status");
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with("State:") && line.find('T') != std::string::npos) {
                return true;
            }
        }
        sched_yield();
    }
    ADD_FAILURE() << "the program was not stopped";
    return false;
}

class StopSignalsTest : public testing::Test {
protected:
    void waitUntilForwarded() {
        clone.reset();
        clone = std::make_unique<EventReader>(waitForClone());
        constexpr int untilNextMarker = 10; // milliseconds
        const Deadline deadline;
        others.read();
        while (clone->isQuiet() && !deadline.passed()) {
            pad.clickMarker();
            pollfd marker{clone->descriptor(), POLLIN, 0};
            poll(&marker, 1, untilNextMarker);
        }
        EXPECT_FALSE(clone->isQuiet()) << "the driver did not grab the touchpad";
        others.read();
    }

    VirtualPad pad{ordinaryPad()};
    EventReader others{pad.node()};
    Process program{{std::filesystem::read_symlink("/proc/self/exe"),
                     "--gtest_also_run_disabled_tests",
                     "--gtest_filter=StoppedProgram.DISABLED_HoldsTheTouchpads"}};
    std::unique_ptr<EventReader> clone;
};

TEST_F(StopSignalsTest, StopSignalUngrabsTheTouchpadAndContinueSignalGrabsAgain) {
    std::int32_t touch = 0;
    waitUntilForwarded();
    for (const int signal : {SIGTSTP, SIGTTIN, SIGTTOU, SIGTSTP}) {
        pad.write(fingerDown(0, ++touch, 1000, 500));
        pad.write(fingerUp(0));
        EXPECT_TRUE(contains(clone->readUntil({EV_ABS, ABS_MT_TRACKING_ID, -1}),
                             {EV_ABS, ABS_MT_TRACKING_ID, touch}));
        EXPECT_TRUE(others.isQuiet());

        program.send(signal);
        ASSERT_TRUE(waitUntilStopped(program.id()));
        pad.write(together({fingerDown(0, ++touch, 1000, 500), {leftDown}}));
        pad.write(together({fingerUp(0), {leftUp}}));
        EXPECT_TRUE(contains(others.readUntil(leftUp), {EV_ABS, ABS_MT_TRACKING_ID, touch}));
        EXPECT_TRUE(waitForCloneCount(0));

        program.send(SIGCONT);
        waitUntilForwarded();
    }
}

} // namespace
} // namespace glidemap::test
