// Tests a program that hangs in a callback while it has grabbed a touchpad. After a second, the
// watchdog ungrabs the touchpad, so that other programs can read it. When the callback returns, the
// driver notifies the program, which switches the click filter on again. The driver then grabs the
// touchpad when all fingers have lifted.

#include "forwarded_pad.h"
#include "input_devices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <future>
#include <memory>
#include <vector>

namespace glidemap::test {
namespace {

constexpr std::int32_t down = driver::clickFilterButtonDown;
constexpr std::int32_t up = driver::clickFilterButtonUp;
constexpr std::int32_t timedOut = driver::clickFilterDisabledByTimeout;

EventFrame clickOfTwo() {
    return together({fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 600), {leftDown}});
}

EventFrame allUp() {
    return together({fingerUp(0), fingerUp(1), {leftUp}});
}

class WatchdogTest : public testing::Test {
protected:
    void SetUp() override { forwarded.switchOn(); }

    // The filter drops clicks, hangs in the first click and continues when `letGo` is set.
    void hangInFilter(bool switchOnAgain) {
        forwarded.filter.answer([this, switchOnAgain](const AskedClick& click) {
            if (click.event == timedOut && switchOnAgain) {
                forwarded.filter.switchOn(true);
            } else if (click.event == down) {
                goOn.wait();
            }
            return true;
        });
    }

    void expectForwarding() {
        forwarded.readNewClone();
        forwarded.others.read();
        forwarded.pad.write(clickOfTwo());
        const auto frames = forwarded.readClone();
        EXPECT_TRUE(contains(frames, {EV_ABS, ABS_MT_TRACKING_ID, 7}));
        EXPECT_FALSE(contains(frames, leftDown));
        EXPECT_TRUE(forwarded.others.isQuiet());
    }

    using Readers = std::vector<std::unique_ptr<EventReader>>;

    // Opens the clones of both touchpads once the driver has created them.
    static Readers readClones(const ClickFilterSession& filter) {
        Readers readers;
        std::vector<std::filesystem::path> nodes;
        for (int clone = 0; clone < 2; ++clone) {
            nodes.push_back(waitForClone(nodes));
            readers.push_back(std::make_unique<EventReader>(nodes.back()));
        }
        filter.waitUntilIntroduced();
        return readers;
    }

    ForwardedPad forwarded;
    std::promise<void> letGo;
    std::shared_future<void> goOn = letGo.get_future().share();
};

TEST_F(WatchdogTest, UngrabsTheTouchpadWhenTheFilterHangs) {
    hangInFilter(true);
    forwarded.pad.write(clickOfTwo());
    forwarded.filter.waitForAsked(1);
    forwarded.pad.write(fingerMove(0, 1100, 500)); // no program receives this event
    EXPECT_TRUE(forwarded.clone->waitUntilGone());
    forwarded.pad.write(fingerMove(0, 1200, 500));
    const auto received = forwarded.others.readUntil({EV_ABS, ABS_MT_POSITION_X, 1200});
    EXPECT_EQ(received.size(), 1U);

    letGo.set_value();
    EXPECT_EQ(forwarded.filter.waitForAsked(2),
              (std::vector<AskedClick>{{down, 0, 2}, {timedOut, 0, 2}}));
    forwarded.session.settle(forwarded.pad);
    forwarded.pad.write(allUp());
    EXPECT_TRUE(contains(forwarded.others.readUntil(leftUp), {EV_ABS, ABS_MT_TRACKING_ID, -1}));
    forwarded.session.waitUntilAsleep();
    EXPECT_EQ(forwarded.session.seen().lastOf(forwarded.session.settle(forwarded.pad)),
              (SeenContacts{{1, 7, seenX(1200), seenY(500)}, {2, 7, seenX(2000), seenY(600)}}));
    expectForwarding();
}

TEST_F(WatchdogTest, NextCloneDoesNotRepeatOldEvents) {
    hangInFilter(true);
    forwarded.pad.write(clickOfTwo());
    forwarded.filter.waitForAsked(1);
    forwarded.pad.write(allUp());
    forwarded.pad.write(fingerDown(0, 9, 1300, 500));
    forwarded.pad.write(fingerUp(0));
    EXPECT_TRUE(forwarded.clone->waitUntilGone());
    letGo.set_value();
    forwarded.filter.waitForAsked(2);
    forwarded.readNewClone();
    EXPECT_TRUE(forwarded.clone->isQuiet());
    expectForwarding();
}

TEST_F(WatchdogTest, ForwardingStaysOffUnlessTheFilterIsSwitchedOnAgain) {
    hangInFilter(false);
    forwarded.pad.write(clickOfTwo());
    forwarded.filter.waitForAsked(1);
    EXPECT_TRUE(forwarded.clone->waitUntilGone());
    letGo.set_value();
    forwarded.filter.waitForAsked(2);
    forwarded.pad.write(allUp());
    forwarded.others.readUntil(leftUp);
    forwarded.session.waitUntilAsleep();
    forwarded.pad.write(clickOfTwo());
    EXPECT_TRUE(contains(forwarded.others.readUntil(leftDown), leftDown));
    EXPECT_TRUE(cloneNodes().empty());
    EXPECT_EQ(forwarded.filter.asked().size(), 2U);
}

TEST_F(WatchdogTest, UngrabsTheTouchpadWhenTheContactCallbackHangs) {
    forwarded.filter.answer([this](const AskedClick& click) {
        if (click.event == timedOut) {
            forwarded.filter.switchOn(true);
        }
        return click.event == down || click.event == up;
    });
    forwarded.session.holdReports();
    forwarded.pad.write(fingerDown(0, 7, 1000, 500));
    EXPECT_TRUE(forwarded.clone->waitUntilGone());
    forwarded.pad.write(fingerMove(0, 1100, 500));
    forwarded.others.readUntil({EV_ABS, ABS_MT_POSITION_X, 1100});
    EXPECT_TRUE(forwarded.session.releaseReports());
    EXPECT_EQ(forwarded.filter.waitForAsked(1), (std::vector<AskedClick>{{timedOut, 0, 1}}));
    forwarded.pad.write(fingerUp(0));
    forwarded.session.waitUntilAsleep();
    expectForwarding();
}

TEST_F(WatchdogTest, UngrabsAllTouchpadsAndNotifiesTheFilterOnce) {
    forwarded.session.stop();
    VirtualPad second(otherPad());
    DriverSession both;
    ClickFilterSession filter(both);
    EventReader others(second.node());
    filter.answer([this, &filter](const AskedClick& click) {
        if (click.event == timedOut) {
            filter.switchOn(true);
        } else {
            goOn.wait();
        }
        return true;
    });
    filter.switchOn(true);
    const Readers readers = readClones(filter);
    forwarded.pad.write(clickOfTwo());
    filter.waitForAsked(1);
    EXPECT_TRUE(waitForCloneCount(0));
    second.write(fingerDown(0, 7, 1000, 500));
    others.readUntil({EV_ABS, ABS_MT_TRACKING_ID, 7});
    second.write(fingerUp(0));
    letGo.set_value();
    filter.waitForAsked(2);
    const Readers newReaders = readClones(filter);

    // No finger touches the second touchpad, so the driver has already grabbed it. The driver grabs
    // the first touchpad once its fingers lift.
    others.read();
    second.write(fingerDown(0, 8, 1100, 500));
    both.settle(second);
    EXPECT_TRUE(others.isQuiet());
    forwarded.others.read();
    forwarded.pad.write(allUp());
    forwarded.others.readUntil(leftUp);
    both.waitUntilAsleep();
    forwarded.pad.write(fingerDown(0, 9, 1100, 500));
    both.settle(forwarded.pad);
    EXPECT_TRUE(forwarded.others.isQuiet());
    EXPECT_EQ(filter.asked().size(), 2U);
}

} // namespace
} // namespace glidemap::test
