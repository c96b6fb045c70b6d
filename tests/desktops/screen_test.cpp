// Tests the overview and the screen lock on each desktop.
#include "desktop_test_base.h"
#include "kit/fake_main_queue.h"
#include "platform/linux/session/linux_overview.h"
#include "platform/linux/session/linux_screen_lock.h"
#include "platform/linux/session/session_processes.h"
#include "variant.h"
#include "waiting.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

namespace glidemap::test {
namespace {

constexpr std::chrono::milliseconds longWait = patience;

class OverviewTest : public DesktopTest {
protected:
    DesktopThread thread;
};

TEST_P(OverviewTest, OverviewOpensAndCloses) {
    if (GetParam().overview == Overview::none) {
        // These are all services that the program may call for an overview.
        for (const char* const name : {"org.gnome.Shell", "org.Cinnamon", "org.kde.kglobalaccel"}) {
            EXPECT_FALSE(isOnBus(name)) << name;
        }
        return;
    }
    if (const std::string reason = desktop->whyNoOverview(); !reason.empty()) {
        GTEST_SKIP() << reason;
    }
    LinuxOverview overview(thread, longWait);
    ASSERT_FALSE(desktop->isOverviewOpen());
    overview.toggle();
    EXPECT_TRUE(waitUntil([&] { return desktop->isOverviewOpen(); }))
        << "the overview does not open";
    overview.toggle();
    EXPECT_TRUE(waitUntil([&] { return !desktop->isOverviewOpen(); }))
        << "the overview does not close";
}

class LockTest : public DesktopTest {
protected:
    // Returns whether the program runs in this session.
    static bool runs(std::string_view program) {
        const std::array<std::string_view, 1> names = {program};
        return !sessionProcesses(names).empty();
    }

    DesktopThread thread;
    FakeMainQueue queue;
    bool refused = false;
};

// If no service can lock the screen, lock() calls its callback. In the program, the callback types
// a shortcut.
TEST_P(LockTest, ScreenLocksOrFailureIsReported) {
    LinuxScreenLock screenLock(thread, queue, {longWait, longWait, longWait});
    ASSERT_TRUE(screenLock.find());
    ASSERT_FALSE(desktop->isLocked());
    screenLock.lock([this] { refused = true; });
    const bool locks = GetParam().lock == Lock::locks;
    EXPECT_TRUE(waitUntil([&] {
        queue.runAll();
        return locks ? desktop->isLocked() : refused;
    }));
    EXPECT_EQ(desktop->isLocked(), locks);
    EXPECT_EQ(refused, !locks);
}

// A common setup of sway and labwc sessions: only swayidle's configuration names the screen locker.
TEST_P(LockTest, SwayidleLockerLocksWithoutALockService) {
    if (GetParam().name != "Sway" && GetParam().name != "Labwc") {
        GTEST_SKIP() << "no desktop for swayidle";
    }
    for (const char* const program : {"swayidle", "swaylock"}) {
        if (!isInstalled(program)) {
            GTEST_SKIP() << "no " << program << " is installed";
        }
    }
    const Environment environment = desktop->environment();
    const std::string inALongTime = "86400";
    const Program swayidle(
        {.words = {"swayidle", "-w", "timeout", inALongTime, "swaylock -f -c 000000"},
         .environment = environment,
         .log = std::filesystem::path(environment.at("XDG_RUNTIME_DIR")) / "swayidle.log"});
    ASSERT_TRUE(waitUntil([] { return runs("swayidle"); }));
    ASSERT_FALSE(runs("swaylock"));
    LinuxScreenLock screenLock(thread, queue, {longWait, longWait, longWait});
    screenLock.lock([this] { refused = true; });
    EXPECT_TRUE(waitUntil([] { return runs("swaylock"); }));
    queue.runAll();
    EXPECT_FALSE(refused);
}

INSTANTIATE_TEST_SUITE_P(On, OverviewTest, testing::ValuesIn(allDesktops()), nameOf);
INSTANTIATE_TEST_SUITE_P(On, LockTest, testing::ValuesIn(allDesktops()), nameOf);

} // namespace
} // namespace glidemap::test
