#include "macos_test.h"
#include "platform/macos/keyboard/local_key_monitor.h"

#include <memory>

namespace glidemap {
namespace {

using doubles::installedMonitors;
using doubles::play;
using doubles::Receiver;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint16_t letterA = 0;
constexpr std::uint16_t letterB = 11;
constexpr std::uint16_t returnKey = 36;

constexpr std::uint64_t shift = 0x20000;
constexpr std::uint64_t capsLock = 0x10000;
constexpr std::uint64_t leftShiftKey = 0x2; // which of the two keys it is: the device's own

constexpr bool repeats = true;

class LocalKeyMonitorTest : public MacosTest {
protected:
    void start() {
        monitor->start([this](const KeyPresses::Press& press) { told.push_back(press); });
    }

    void startOnce() {
        monitor->start([this](const KeyPresses::Press& press) {
            told.push_back(press);
            monitor->stop();
        });
    }

    std::unique_ptr<LocalKeyMonitor> monitor = std::make_unique<LocalKeyMonitor>();
    std::vector<KeyPresses::Press> told;
};

TEST_F(LocalKeyMonitorTest, IsForKeyPressesAlone) {
    start();
    EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400"));
    monitor->stop();
    EXPECT_THAT(journal(), ElementsAre("removeMonitor"));
}

TEST_F(LocalKeyMonitorTest, TellsTheKeyCodeAndTheFlagsThatNoDeviceHasOfItsOwn) {
    start();
    EXPECT_EQ(play({letterA, shift | capsLock | leftShiftKey}), Receiver::monitor);
    EXPECT_THAT(told, ElementsAre(KeyPresses::Press{letterA, shift | capsLock}));
}

TEST_F(LocalKeyMonitorTest, TakesEveryPressUntilItIsStopped) {
    start();
    EXPECT_EQ(play({letterA}), Receiver::monitor);
    EXPECT_EQ(play({letterB}), Receiver::monitor);
    EXPECT_THAT(told, ElementsAre(KeyPresses::Press{letterA, 0}, KeyPresses::Press{letterB, 0}));
}

TEST_F(LocalKeyMonitorTest, SwallowsRepetitionsAndTellsNothing) {
    start();
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::monitor); // held since before
    EXPECT_EQ(play({letterA}), Receiver::monitor);
    EXPECT_EQ(play({letterA, 0, repeats}), Receiver::monitor);
    EXPECT_THAT(told, ElementsAre(KeyPresses::Press{letterA, 0}));
}

TEST_F(LocalKeyMonitorTest, StopsWithinItsHandler) {
    startOnce();
    EXPECT_EQ(play({returnKey}), Receiver::monitor);
    EXPECT_EQ(play({letterA}), Receiver::windows);
    EXPECT_THAT(told, ElementsAre(KeyPresses::Press{returnKey, 0}));
}

TEST_F(LocalKeyMonitorTest, SwallowsTheRepetitionsOfATakenPressAfterItHasStopped) {
    startOnce();
    play({returnKey});
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::monitor);
    EXPECT_EQ(play({letterA, 0, repeats}), Receiver::windows);
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::monitor);
    EXPECT_THAT(told, ElementsAre(KeyPresses::Press{returnKey, 0}));
}

TEST_F(LocalKeyMonitorTest, GoesWithTheNextPressThatIsNotItsOwn) {
    for (const std::uint16_t next : {letterA, returnKey}) {
        startOnce();
        play({returnKey});
        EXPECT_EQ(installedMonitors(), 1U);
        EXPECT_EQ(play({next}), Receiver::windows);
        EXPECT_EQ(installedMonitors(), 0U);
        EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400", "removeMonitor"));
    }
}

TEST_F(LocalKeyMonitorTest, GoesAtOnceWhenItIsStoppedWithoutAPress) {
    start();
    play({returnKey, 0, repeats});
    monitor->stop();
    EXPECT_EQ(installedMonitors(), 0U);
    EXPECT_EQ(play({letterA}), Receiver::windows);
    EXPECT_THAT(told, IsEmpty());
}

TEST_F(LocalKeyMonitorTest, LeavesTheRestOfAPressAloneWhenItIsAbandoned) {
    startOnce();
    play({returnKey});
    monitor->abandon();
    EXPECT_EQ(installedMonitors(), 0U);
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::windows);
}

TEST_F(LocalKeyMonitorTest, IsRemovedOnce) {
    start();
    monitor->stop();
    monitor->stop();
    monitor->abandon();
    monitor.reset();
    EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400", "removeMonitor"));
}

TEST_F(LocalKeyMonitorTest, IsInstalledOnceHoweverOftenItIsStarted) {
    start();
    startOnce();
    play({letterA});
    start();
    play({letterB});
    EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400"));
    EXPECT_THAT(told, ElementsAre(KeyPresses::Press{letterA, 0}, KeyPresses::Press{letterB, 0}));
}

TEST_F(LocalKeyMonitorTest, TheSystemCallsNoMoreOnceItHasGone) {
    startOnce();
    play({returnKey});
    monitor.reset();
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::windows);
}

TEST_F(LocalKeyMonitorTest, MayBeDestroyedByItsHandler) {
    const auto destroyed = std::make_shared<int>();
    monitor->start([this, destroyed](const KeyPresses::Press& press) {
        monitor.reset();
        told.push_back(press); // what the handler has captured is there still
    });
    EXPECT_EQ(play({letterA}), Receiver::monitor);
    EXPECT_THAT(told, ElementsAre(KeyPresses::Press{letterA, 0}));
    EXPECT_EQ(installedMonitors(), 0U);
    EXPECT_EQ(destroyed.use_count(), 1);
}

TEST_F(LocalKeyMonitorTest, TakesNothingWhereTheSystemGivesNone) {
    doubles::appKit().givesEventMonitors = false;
    start();
    EXPECT_EQ(play({letterA}), Receiver::windows);
    monitor->stop();
    monitor.reset();
    EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400"));
}

} // namespace
} // namespace glidemap
