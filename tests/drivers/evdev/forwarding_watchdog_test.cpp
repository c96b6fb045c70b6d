#include "drivers/evdev/forwarding_watchdog.h"
#include "fake_pads.h"
#include "fake_time.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <thread>

namespace glidemap::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

class ForwardingWatchdogTest : public testing::Test {
protected:
    // A touchpad with a clone.
    struct Forwarded {
        std::shared_ptr<FakeStream> stream = std::make_shared<FakeStream>();
        FakeOpenPad pad{stream};
        std::unique_ptr<PadClone> clone = pad.makeClone();

        const FakeSystem& system() const { return *stream->system(); }
    };

    ForwardingWatchdog::Held held(Forwarded& forwarded) {
        return {&forwarded, &forwarded.pad, forwarded.clone.get()};
    }

    bool grab(Forwarded& forwarded) {
        return watchdog.hold(held(forwarded), [&] { return forwarded.pad.grab().has_value(); });
    }

    void hold(Forwarded& forwarded) {
        EXPECT_TRUE(grab(forwarded));
        EXPECT_TRUE(time.waitUntilWaitingFor(std::nullopt));
    }

    FakeTime time;
    std::atomic<int> stalls = 0;
    Forwarded one;
    Forwarded two;
    ForwardingWatchdog watchdog{time, [this] {
                                    ++stalls;
                                }};
};

TEST_F(ForwardingWatchdogTest, UngrabsWhenTheReaderIsStuckForASecond) {
    hold(one);
    watchdog.work();
    EXPECT_TRUE(time.waitUntilWaitingFor(1s));
    time.advance(999999999ns);
    EXPECT_TRUE(time.waitUntilWaitingFor(1ns));
    EXPECT_TRUE(watchdog.holds(one.pad));
    time.advance(1ns);
    EXPECT_EQ(one.system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_TRUE(time.waitUntilWaitingFor(std::nullopt));
    EXPECT_FALSE(watchdog.holds(one.pad));
    EXPECT_EQ(stalls, 1);
    EXPECT_EQ(watchdog.takeStall(), std::optional<driver::Device>(&one));
    EXPECT_EQ(watchdog.takeStall(), std::nullopt);
}

TEST_F(ForwardingWatchdogTest, UngrabsEveryHeldTouchpad) {
    hold(one);
    hold(two);
    watchdog.work();
    time.advance(1s);
    EXPECT_EQ(one.system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_EQ(two.system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_TRUE(time.waitUntilWaitingFor(std::nullopt));
    EXPECT_EQ(stalls, 1);
}

TEST_F(ForwardingWatchdogTest, ReaderThatMakesProgressIsNotStuck) {
    hold(one);
    watchdog.work();
    EXPECT_TRUE(time.waitUntilWaitingFor(1s));
    time.advance(1ms);
    for (int round = 0; round < 5; ++round) {
        EXPECT_TRUE(time.waitUntilWaitingFor(999ms));
        time.advance(998ms);
        EXPECT_TRUE(time.waitUntilWaitingFor(1ms));
        watchdog.progress();
        time.advance(1ms); // wakes the watchdog, which then detects the progress
    }
    EXPECT_TRUE(watchdog.holds(one.pad));
    EXPECT_EQ(one.system().journal(), (Texts{"clone", "grab"}));
}

TEST_F(ForwardingWatchdogTest, WaitsWithoutATimeoutAfterAllFingersHaveLifted) {
    hold(one);
    watchdog.work();
    EXPECT_TRUE(time.waitUntilWaitingFor(1s));
    watchdog.rest(false);
    EXPECT_TRUE(time.waitUntilWaitingFor(std::nullopt));
    time.advance(1h);
    EXPECT_TRUE(watchdog.holds(one.pad));
}

TEST_F(ForwardingWatchdogTest, SleepsBetweenReportsAndWhileAFingerRests) {
    hold(one);
    watchdog.work();
    EXPECT_TRUE(time.waitUntilWaitingFor(1s));
    watchdog.rest(true);
    time.advance(300ms);
    watchdog.work();
    watchdog.rest(true);
    EXPECT_TRUE(time.waitUntilWaitingFor(700ms)) << "the first report's time-out still runs";
    time.advance(700ms);
    EXPECT_TRUE(time.waitUntilWaitingFor(300ms)) << "a second after the last report";
    time.advance(300ms);
    EXPECT_TRUE(time.waitUntilWaitingFor(std::nullopt));
    time.advance(1h);
    EXPECT_TRUE(watchdog.holds(one.pad));
    watchdog.work();
    EXPECT_TRUE(time.waitUntilWaitingFor(1s)) << "the watchdog watches again";
}

TEST_F(ForwardingWatchdogTest, DoesNotUngrabAReleasedTouchpad) {
    hold(one);
    hold(two);
    watchdog.release(one.pad, [] { return true; });
    watchdog.work();
    time.advance(1s);
    EXPECT_EQ(two.system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_EQ(one.system().journal(), (Texts{"clone", "grab"}));
}

TEST_F(ForwardingWatchdogTest, HoldsATouchpadThatStaysGrabbed) {
    hold(one);
    watchdog.release(one.pad, [] { return false; });
    EXPECT_TRUE(watchdog.holds(one.pad));
    watchdog.work();
    time.advance(1s);
    EXPECT_EQ(one.system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
}

TEST_F(ForwardingWatchdogTest, ReleasesOnlyAHeldTouchpad) {
    watchdog.release(one.pad, [] {
        ADD_FAILURE() << "the watchdog does not hold the touchpad";
        return true;
    });
}

// After pause() has returned, the process is stopped, and a stopped process cannot release a grab.
TEST_F(ForwardingWatchdogTest, PauseDuringAReleaseReturnsWithTheTouchpadUngrabbed) {
    hold(one);
    std::thread pausing;
    bool isGrabbed = true;
    watchdog.release(one.pad, [&] {
        std::promise<void> begins;
        pausing = std::thread([&] {
            begins.set_value();
            watchdog.pause();
            isGrabbed = one.system().isGrabbed();
        });
        begins.get_future().wait();
        one.pad.ungrab();
        return true;
    });
    pausing.join();
    EXPECT_FALSE(isGrabbed);
    EXPECT_FALSE(watchdog.holds(one.pad));
}

TEST_F(ForwardingWatchdogTest, UngrabsATouchpadThatWasGrabbedAfterTheReaderStartedWorking) {
    watchdog.work();
    EXPECT_TRUE(grab(one));
    EXPECT_TRUE(time.waitUntilWaitingFor(1s));
    time.advance(1s);
    EXPECT_EQ(one.system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
}

TEST_F(ForwardingWatchdogTest, GrabsNothingWhilePaused) {
    hold(one);
    watchdog.pause();
    EXPECT_TRUE(watchdog.isPaused());
    EXPECT_EQ(one.system().journal(), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_FALSE(grab(two));
    EXPECT_EQ(two.system().journal(), Texts{"clone"});
    watchdog.resume();
    EXPECT_FALSE(watchdog.isPaused());
    EXPECT_TRUE(grab(two));
}

// After pause() has returned, the process is stopped, and a stopped process cannot release a grab.
TEST_F(ForwardingWatchdogTest, PauseDuringAGrabUngrabsTheTouchpadBeforeReturning) {
    std::thread pausing;
    bool isGrabbed = true;
    EXPECT_TRUE(watchdog.hold(held(one), [&] {
        EXPECT_TRUE(one.pad.grab().has_value());
        std::promise<void> begins;
        pausing = std::thread([&] {
            begins.set_value();
            watchdog.pause();
            isGrabbed = one.system().isGrabbed();
        });
        begins.get_future().wait();
        return true;
    }));
    pausing.join();
    EXPECT_FALSE(isGrabbed);
    EXPECT_FALSE(watchdog.holds(one.pad));
}

TEST_F(ForwardingWatchdogTest, DoesNotHoldATouchpadThatCannotBeGrabbed) {
    EXPECT_FALSE(watchdog.hold(held(one), [] { return false; }));
    EXPECT_FALSE(watchdog.holds(one.pad));
    watchdog.pause();
    EXPECT_EQ(one.system().journal(), Texts{"clone"});
}

} // namespace
} // namespace glidemap::test
