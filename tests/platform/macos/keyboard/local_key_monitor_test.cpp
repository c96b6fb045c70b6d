#include "macos_test.h"
#include "platform/macos/keyboard/local_key_monitor.h"

#include <memory>

namespace glidemap {
namespace {

using test::installedMonitors;
using test::play;
using test::Receiver;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint16_t letterA = 0;
constexpr std::uint16_t letterB = 11;
constexpr std::uint16_t returnKey = 36;

constexpr std::uint64_t shift = 0x20000;
constexpr std::uint64_t capsLock = 0x10000;
constexpr std::uint64_t leftShiftKey = 0x2; // the device-dependent flag of the left key

constexpr bool repeats = true;

class LocalKeyMonitorTest : public MacosTest {
protected:
    void start() {
        monitor->start([this](const KeyPresses::Press& press) { reported.push_back(press); });
    }

    void startOnce() {
        monitor->start([this](const KeyPresses::Press& press) {
            reported.push_back(press);
            monitor->stop();
        });
    }

    std::unique_ptr<LocalKeyMonitor> monitor = std::make_unique<LocalKeyMonitor>();
    std::vector<KeyPresses::Press> reported;
};

TEST_F(LocalKeyMonitorTest, MonitorsOnlyKeyPresses) {
    start();
    EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400"));
    monitor->stop();
    EXPECT_THAT(journal(), ElementsAre("removeMonitor"));
}

TEST_F(LocalKeyMonitorTest, ReportsTheKeyCodeAndTheDeviceIndependentFlags) {
    start();
    EXPECT_EQ(play({letterA, shift | capsLock | leftShiftKey}), Receiver::monitor);
    EXPECT_THAT(reported, ElementsAre(KeyPresses::Press{letterA, shift | capsLock}));
}

TEST_F(LocalKeyMonitorTest, SwallowsEveryPressUntilStop) {
    start();
    EXPECT_EQ(play({letterA}), Receiver::monitor);
    EXPECT_EQ(play({letterB}), Receiver::monitor);
    EXPECT_THAT(reported,
                ElementsAre(KeyPresses::Press{letterA, 0}, KeyPresses::Press{letterB, 0}));
}

TEST_F(LocalKeyMonitorTest, SwallowsRepeatsAndDoesNotReportThem) {
    start();
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::monitor); // key pressed before start()
    EXPECT_EQ(play({letterA}), Receiver::monitor);
    EXPECT_EQ(play({letterA, 0, repeats}), Receiver::monitor);
    EXPECT_THAT(reported, ElementsAre(KeyPresses::Press{letterA, 0}));
}

TEST_F(LocalKeyMonitorTest, CallbackMayStopTheMonitor) {
    startOnce();
    EXPECT_EQ(play({returnKey}), Receiver::monitor);
    EXPECT_EQ(play({letterA}), Receiver::windows);
    EXPECT_THAT(reported, ElementsAre(KeyPresses::Press{returnKey, 0}));
}

TEST_F(LocalKeyMonitorTest, SwallowsRepeatsOfASwallowedPressAfterStop) {
    startOnce();
    play({returnKey});
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::monitor);
    EXPECT_EQ(play({letterA, 0, repeats}), Receiver::windows);
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::monitor);
    EXPECT_THAT(reported, ElementsAre(KeyPresses::Press{returnKey, 0}));
}

TEST_F(LocalKeyMonitorTest, NextPressAfterStopRemovesTheMonitor) {
    for (const std::uint16_t next : {letterA, returnKey}) {
        startOnce();
        play({returnKey});
        EXPECT_EQ(installedMonitors(), 1U);
        EXPECT_EQ(play({next}), Receiver::windows);
        EXPECT_EQ(installedMonitors(), 0U);
        EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400", "removeMonitor"));
    }
}

TEST_F(LocalKeyMonitorTest, StopWithoutAPressRemovesTheMonitorImmediately) {
    start();
    play({returnKey, 0, repeats});
    monitor->stop();
    EXPECT_EQ(installedMonitors(), 0U);
    EXPECT_EQ(play({letterA}), Receiver::windows);
    EXPECT_THAT(reported, IsEmpty());
}

TEST_F(LocalKeyMonitorTest, RepeatsOfAPressReachTheWindowsAfterAbandon) {
    startOnce();
    play({returnKey});
    monitor->abandon();
    EXPECT_EQ(installedMonitors(), 0U);
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::windows);
}

TEST_F(LocalKeyMonitorTest, RepeatedStopsRemoveTheSystemMonitorOnlyOnce) {
    start();
    monitor->stop();
    monitor->stop();
    monitor->abandon();
    monitor.reset();
    EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400", "removeMonitor"));
}

TEST_F(LocalKeyMonitorTest, RepeatedStartsInstallOneMonitor) {
    start();
    startOnce();
    play({letterA});
    start();
    play({letterB});
    EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400"));
    EXPECT_THAT(reported,
                ElementsAre(KeyPresses::Press{letterA, 0}, KeyPresses::Press{letterB, 0}));
}

TEST_F(LocalKeyMonitorTest, PassesEventsAfterDestruction) {
    startOnce();
    play({returnKey});
    monitor.reset();
    EXPECT_EQ(play({returnKey, 0, repeats}), Receiver::windows);
}

TEST_F(LocalKeyMonitorTest, CallbackMayDestroyTheMonitor) {
    const auto destroyed = std::make_shared<int>();
    monitor->start([this, destroyed](const KeyPresses::Press& press) {
        monitor.reset();
        reported.push_back(press); // the callback's captures are still valid
    });
    EXPECT_EQ(play({letterA}), Receiver::monitor);
    EXPECT_THAT(reported, ElementsAre(KeyPresses::Press{letterA, 0}));
    EXPECT_EQ(installedMonitors(), 0U);
    EXPECT_EQ(destroyed.use_count(), 1);
}

TEST_F(LocalKeyMonitorTest, PassesEventsIfTheSystemCreatesNoMonitor) {
    test::appKit().givesEventMonitors = false;
    start();
    EXPECT_EQ(play({letterA}), Receiver::windows);
    monitor->stop();
    monitor.reset();
    EXPECT_THAT(journal(), ElementsAre("addLocalMonitor 0x400"));
}

} // namespace
} // namespace glidemap
