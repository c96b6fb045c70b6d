#include "drivers/evdev/forwarding_watchdog.h"
#include "fake_pads.h"
#include "fake_time.h"

#include <gtest/gtest.h>

#include <atomic>

namespace glidemap::test {
namespace {

using namespace std::chrono_literals;
using Texts = std::vector<std::string>;

class ForwardingWatchdogTest : public testing::Test {
protected:
    // A grabbed touchpad with a clone.
    struct Forwarded {
        std::shared_ptr<FakeStream> stream = std::make_shared<FakeStream>();
        FakeOpenPad pad{stream};
        std::unique_ptr<PadClone> clone = pad.makeClone();

        Forwarded() { pad.grab(); }
        const FakeSystem& system() const { return *stream->system(); }
    };

    ForwardingWatchdog::Held held(Forwarded& forwarded) {
        return {&forwarded, &forwarded.pad, forwarded.clone.get()};
    }

    void hold(Forwarded& forwarded) {
        EXPECT_TRUE(watchdog.hold(held(forwarded)));
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

TEST_F(ForwardingWatchdogTest, GivesBackWhenTheReaderIsStuckForASecond) {
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

TEST_F(ForwardingWatchdogTest, GivesBackEveryHeldTouchpad) {
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
        time.advance(1ms); // wakes the watchdog, which sees the progress
    }
    EXPECT_TRUE(watchdog.holds(one.pad));
    EXPECT_EQ(one.system().journal(), (Texts{"clone", "grab"}));
}

TEST_F(ForwardingWatchdogTest, WaitsWithoutATimeOutOnceAllFingersHaveLifted) {
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

TEST_F(ForwardingWatchdogTest, LeavesAReleasedTouchpadAlone) {
    hold(one);
    hold(two);
    watchdog.release(one.pad);
    watchdog.work();
    time.advance(1s);
    EXPECT_EQ(two.system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
    EXPECT_EQ(one.system().journal(), (Texts{"clone", "grab"}));
}

TEST_F(ForwardingWatchdogTest, WatchesATouchpadThatIsGrabbedDuringWork) {
    watchdog.work();
    EXPECT_TRUE(watchdog.hold(held(one)));
    EXPECT_TRUE(time.waitUntilWaitingFor(1s));
    time.advance(1s);
    EXPECT_EQ(one.system().wait(4), (Texts{"clone", "grab", "ungrab", "destroy"}));
}

} // namespace
} // namespace glidemap::test
