// The overview and locking the screen, on each desktop.
#include "desktop_test_base.h"
#include "kit/queued_main_queue.h"
#include "platform/linux/session/linux_overview.h"
#include "platform/linux/session/linux_screen_lock.h"
#include "variant.h"
#include "waiting.h"

#include <chrono>

namespace glidemap::desktops {
namespace {

using application::waitUntil;

constexpr std::chrono::milliseconds longWait = patience;

class OverviewTest : public DesktopTest {
protected:
    DesktopThread thread;
};

TEST_P(OverviewTest, OverviewOpensAndCloses) {
    if (GetParam().overview == Overview::none) {
        // Every service that the program may call for an overview.
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
    DesktopThread thread;
    kit::QueuedMainQueue queue;
    bool refused = false;
};

// If no service can lock, the program is notified and types the desktop's usual shortcut.
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

INSTANTIATE_TEST_SUITE_P(On, OverviewTest, testing::ValuesIn(allDesktops()), nameOf);
INSTANTIATE_TEST_SUITE_P(On, LockTest, testing::ValuesIn(allDesktops()), nameOf);

} // namespace
} // namespace glidemap::desktops
