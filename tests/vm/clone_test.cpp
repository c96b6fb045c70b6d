// Tests a touchpad whose clicks are filtered. Other programs read its clone, which emits all events
// of the touchpad except the dropped clicks.

#include "deadline.h"
#include "forwarded_pad.h"
#include "input_devices.h"
#include "pad_hand.h"
#include "process.h"
#include "threads.h"
#include "unprivileged.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <sched.h>
#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <csignal>
#include <ctime>
#include <map>
#include <memory>

namespace glidemap::test {
namespace {

constexpr std::int32_t down = driver::clickFilterButtonDown;
constexpr std::int32_t up = driver::clickFilterButtonUp;

TEST(CloneTest, DropsATwoFingerClickAndItsReleaseButNotItsTouches) {
    ForwardedPad forwarded;
    forwarded.switchOn();
    auto& pad = forwarded.pad;
    pad.write(together({fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 600)}));
    pad.write(together({fingerMove(0, 1010, 500), {leftDown}}));
    pad.write({leftUp});
    pad.write(together({fingerUp(0), fingerUp(1)}));

    EXPECT_EQ(framesWithoutMarker(forwarded.readClone()),
              (std::vector<EventFrame>{
                  together({{{EV_ABS, ABS_MT_TRACKING_ID, 7},
                             {EV_ABS, ABS_MT_POSITION_X, 1000},
                             {EV_ABS, ABS_MT_POSITION_Y, 500}},
                            fingerDown(1, 8, 2000, 600)}),
                  {{EV_ABS, ABS_MT_SLOT, 0},
                   {EV_ABS, ABS_MT_POSITION_X, 1010},
                   {EV_ABS, ABS_MT_TOOL_TYPE, MT_TOOL_PALM},
                   {EV_ABS, ABS_MT_SLOT, 1},
                   {EV_ABS, ABS_MT_TOOL_TYPE, MT_TOOL_PALM}},
                  {{EV_ABS, ABS_MT_SLOT, 0},
                   {EV_ABS, ABS_MT_TOOL_TYPE, MT_TOOL_FINGER},
                   {EV_ABS, ABS_MT_SLOT, 1},
                   {EV_ABS, ABS_MT_TOOL_TYPE, MT_TOOL_FINGER}},
                  together({fingerUp(0), fingerUp(1)}),
              }));
    EXPECT_EQ(forwarded.filter.asked(), (std::vector<AskedClick>{{down, 0, 2}, {up, 0, 2}}));
    EXPECT_TRUE(forwarded.others.isQuiet());
}

TEST(CloneTest, OneFingerClickIsForwarded) {
    ForwardedPad forwarded;
    forwarded.switchOn();
    auto& pad = forwarded.pad;
    pad.write(together({fingerDown(0, 7, 1000, 500), {leftDown}}));
    pad.write({leftUp});
    pad.write(fingerUp(0));

    EXPECT_EQ(framesWithoutMarker(forwarded.readClone()), (std::vector<EventFrame>{
                                                              {{EV_ABS, ABS_MT_TRACKING_ID, 7},
                                                               {EV_ABS, ABS_MT_POSITION_X, 1000},
                                                               {EV_ABS, ABS_MT_POSITION_Y, 500},
                                                               leftDown},
                                                              {leftUp},
                                                              {{EV_ABS, ABS_MT_TRACKING_ID, -1}},
                                                          }));
    EXPECT_EQ(forwarded.filter.asked(), (std::vector<AskedClick>{{down, 0, 1}, {up, 0, 1}}));
}

TEST(CloneTest, FiltersTheRightButtonLikeTheLeftButton) {
    PadShape shape = ordinaryPad();
    shape.keys.insert(BTN_RIGHT);
    ForwardedPad forwarded(shape);
    forwarded.switchOn();
    auto& pad = forwarded.pad;
    pad.write(together({fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 600)}));
    pad.write({{EV_KEY, BTN_RIGHT, 1}});
    pad.write({{EV_KEY, BTN_RIGHT, 0}});
    const auto frames = forwarded.readClone();
    EXPECT_FALSE(contains(frames, {EV_KEY, BTN_RIGHT, 1}));
    EXPECT_FALSE(contains(frames, {EV_KEY, BTN_RIGHT, 0}));
    EXPECT_EQ(forwarded.filter.asked(), (std::vector<AskedClick>{{down, 1, 2}, {up, 1, 2}}));
}

constexpr std::int64_t second = 1000000;
// In microseconds, longer than a program's usual delay, but shorter than the kernel's uptime.
constexpr std::int64_t late = second / 50;

std::int64_t now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return time.tv_sec * second + time.tv_nsec / 1000;
}

void waitUntilClock(std::int64_t time) {
    while (now() < time) {
        sched_yield();
    }
}

// Linux 6.6 and later keep the time of a written event. Older kernels set the time themselves.
bool kernelTakesGivenTimes(ForwardedPad& forwarded) {
    const std::int64_t given = now() - late;
    forwarded.pad.write(fingerDown(0, 1, 500, 600), given);
    forwarded.pad.write(fingerUp(0));
    const auto frames = forwarded.others.readUntil({EV_ABS, ABS_MT_TRACKING_ID, -1});
    return !frames.empty() && frames.front().time == given;
}

// If the kernel sets the times itself, the clone's events have slightly later times than the
// touchpad's.
TEST(CloneTest, CloneFramesKeepTheTouchpadsOrderAndTimes) {
    constexpr std::int32_t steps = 20;
    ForwardedPad forwarded;
    const std::int64_t latest = kernelTakesGivenTimes(forwarded) ? 0 : second;
    forwarded.switchOn();
    forwarded.session.forget();
    forwarded.pad.write(fingerDown(0, 7, 1000, 500));
    for (std::int32_t step = 1; step < steps; ++step) {
        forwarded.pad.write(fingerMove(0, 1000 + step, 500));
    }
    const auto frames = forwarded.readClone();
    const auto reports = forwarded.session.seen().reports;
    ASSERT_EQ(reports.size(), std::size_t{steps});
    ASSERT_GE(frames.size(), reports.size());
    std::int64_t before = 0;
    for (std::size_t index = 0; index < reports.size(); ++index) {
        const std::int64_t spoken = std::llround(reports[index].timestamp * 1e6);
        EXPECT_EQ(frames[index].events.back().value, index == 0 ? 500 : 1000 + std::int32_t(index));
        EXPECT_GE(frames[index].time, std::max(spoken, before));
        EXPECT_LE(frames[index].time, spoken + latest);
        before = frames[index].time;
    }
}

TEST(CloneTest, FrameThatTheDriverReadsLateKeepsItsTimestamp) {
    ForwardedPad forwarded;
    if (!kernelTakesGivenTimes(forwarded)) {
        GTEST_SKIP() << "this kernel stamps events with its own times";
    }
    forwarded.switchOn();
    // The frames must be newer than the grab, because the driver does not forward older frames:
    // the touchpad's other readers have received them.
    const std::int64_t spoken = now();
    waitUntilClock(spoken + 2 * late);
    forwarded.pad.write(fingerDown(0, 7, 1000, 500), spoken);
    forwarded.pad.write(fingerMove(0, 1100, 500), spoken + late);
    const auto frames = forwarded.readClone();
    ASSERT_GE(frames.size(), 2U);
    EXPECT_EQ(frames[0].time, spoken);
    EXPECT_EQ(frames[1].time, spoken + late);
}

TEST(CloneTest, GrabWaitsUntilARestingFingerLifts) {
    ForwardedPad forwarded;
    auto& pad = forwarded.pad;
    pad.write(fingerDown(0, 7, 1000, 500));
    forwarded.session.settle(pad);
    forwarded.switchOn();
    pad.write(together({fingerDown(1, 8, 2000, 600), {leftDown}}));
    pad.write({leftUp});
    pad.write(together({fingerUp(0), fingerUp(1)}));
    EXPECT_TRUE(contains(forwarded.others.readUntil(leftUp), leftDown));
    forwarded.session.waitUntilAsleep();
    EXPECT_TRUE(forwarded.filter.asked().empty());
    EXPECT_TRUE(forwarded.clone->isQuiet());
    forwarded.others.read(); // reads the frame in which the fingers lift

    // The finger lands at its slot's last position, so the touchpad does not report the position.
    pad.write(fingerDown(0, 9, 1000, 500));
    EXPECT_EQ(framesWithoutMarker(forwarded.readClone()),
              (std::vector<EventFrame>{{{EV_ABS, ABS_MT_TRACKING_ID, 9},
                                        {EV_ABS, ABS_MT_POSITION_X, 1000},
                                        {EV_ABS, ABS_MT_POSITION_Y, 500}}}));
    EXPECT_TRUE(forwarded.others.isQuiet());
}

TEST(CloneTest, GrabWaitsUntilAHeldButtonIsReleased) {
    ForwardedPad forwarded;
    auto& pad = forwarded.pad;
    pad.write({leftDown});
    forwarded.session.settle(pad);
    forwarded.switchOn();
    pad.write(fingerDown(0, 7, 1000, 500));
    pad.write(fingerUp(0));
    pad.write({leftUp});
    EXPECT_TRUE(contains(forwarded.others.readUntil(leftUp), {EV_ABS, ABS_MT_TRACKING_ID, -1}));
    forwarded.session.waitUntilAsleep();
    pad.write(fingerDown(0, 8, 1100, 500));
    EXPECT_TRUE(contains(forwarded.readClone(), {EV_ABS, ABS_MT_TRACKING_ID, 8}));
    EXPECT_TRUE(forwarded.others.isQuiet());
}

TEST(CloneTest, SwitchingTheFilterOffUngrabsTheTouchpadOnceTheFingersLift) {
    ForwardedPad forwarded;
    forwarded.switchOn();
    auto& pad = forwarded.pad;
    pad.write(fingerDown(0, 7, 1000, 500));
    forwarded.readClone();
    forwarded.switchOff();
    pad.write(together({fingerDown(1, 8, 2000, 600), {leftDown}}));
    const auto stillForwarded = forwarded.readClone();
    EXPECT_TRUE(contains(stillForwarded, leftDown)) << "the filter is off";
    EXPECT_TRUE(forwarded.filter.asked().empty());
    pad.write({leftUp});
    EXPECT_TRUE(contains(forwarded.readClone(), leftUp));
    EXPECT_TRUE(forwarded.others.isQuiet());

    pad.write(together({fingerUp(0), fingerUp(1)}));
    EXPECT_TRUE(forwarded.clone->waitUntilGone());
    forwarded.session.waitUntilAsleep();
    pad.write(fingerDown(0, 9, 1100, 500));
    EXPECT_EQ(forwarded.others.readUntil({EV_ABS, ABS_MT_TRACKING_ID, 9}).size(), 1U);
}

TEST(CloneTest, EachEventArrivesOnceWhileTheFilterIsSwitchedOnAndOff) {
    ForwardedPad forwarded;
    for (std::int32_t round = 1; round <= 10; ++round) {
        const PadEvent landing{EV_ABS, ABS_MT_TRACKING_ID, round};
        forwarded.switchOn();
        forwarded.pad.write(fingerDown(0, round, 1000, 500));
        EXPECT_TRUE(contains(forwarded.readClone(), landing));
        forwarded.pad.write(fingerUp(0));
        forwarded.readClone();
        EXPECT_TRUE(forwarded.others.isQuiet());
        forwarded.switchOff();
        EXPECT_TRUE(forwarded.clone->waitUntilGone());
        forwarded.pad.write(fingerDown(0, round + 100, 1000, 500));
        forwarded.pad.write(fingerUp(0));
        forwarded.others.readUntil({EV_ABS, ABS_MT_TRACKING_ID, -1});
    }
}

TEST(CloneTest, TouchpadWithoutButtonsIsNotCloned) {
    PadShape shape = ordinaryPad();
    shape.keys.erase(BTN_LEFT);
    ForwardedPad forwarded(shape);
    forwarded.filter.switchOn(true);
    forwarded.session.waitUntilAsleep();
    forwarded.pad.write(fingerDown(0, 7, 1000, 500));
    forwarded.others.readUntil({EV_ABS, ABS_MT_TRACKING_ID, 7});
    EXPECT_TRUE(cloneNodes().empty());
}

TEST(CloneTest, DriverIgnoresClones) {
    ForwardedPad forwarded;
    forwarded.switchOn();
    const auto create = forwarded.session.symbol<driver::CreateList>(driver::createListSymbol);
    const auto count = forwarded.session.symbol<driver::ListCount>(driver::listCountSymbol);
    EXPECT_EQ(count(create()), 1);
    EXPECT_EQ(forwarded.session.unreadableTouchpads(), 0);
}

// The kernel filters the touchpad's jitter, and the clone emits the filtered events. Where
// libinput's udev rules are installed, libinput filters instead and finds the fuzz value on the
// clone too.
TEST(CloneTest, EitherTheKernelOrLibinputFiltersJitter) {
    constexpr std::int32_t jitter = 8;
    PadShape shape = ordinaryPad();
    shape.axes[ABS_X].fuzz = shape.axes[ABS_MT_POSITION_X].fuzz = jitter;
    ForwardedPad forwarded(shape);
    forwarded.switchOn();
    const auto clone = waitForClone();
    const auto fuzzOf = [](const auto& node) {
        return shapeOf(node).axes.at(ABS_MT_POSITION_X).fuzz;
    };
    const Deadline deadline; // libinput's udev rule may run after the other rules
    while (fuzzOf(clone) != 0 && !deadline.passed()) {
        sched_yield();
    }
    EXPECT_EQ(fuzzOf(clone), 0);
    const bool byLibinput = fuzzOf(forwarded.pad.node()) == 0;
    for (const char* property : {"LIBINPUT_FUZZ_00", "LIBINPUT_FUZZ_35"}) {
        const auto ofPad = udevProperty(forwarded.pad.node(), property);
        EXPECT_EQ(ofPad.has_value(), byLibinput);
        EXPECT_EQ(udevProperty(clone, property), ofPad);
    }
}

TEST(CloneTest, LibinputUsesTheCloneAsATouchpadAndMovesThePointer) {
    if (!std::filesystem::exists("/usr/bin/libinput")) {
        GTEST_SKIP() << "libinput-tools is not installed";
    }
    ForwardedPad forwarded;
    forwarded.switchOn();
    const std::string clone = waitForClone().filename();
    Process libinput({"/usr/bin/stdbuf", "-oL", "/usr/bin/libinput", "debug-events"});
    const auto added = libinput.waitForOutput("-" + clone + " ");
    ASSERT_TRUE(added);
    EXPECT_THAT(*added, testing::HasSubstr("DEVICE_ADDED"));
    EXPECT_THAT(*added, testing::HasSubstr("cap:pg"));
    ASSERT_TRUE(libinput.waitUntilReading("/dev/input/" + clone));
    PadHand(forwarded.pad).down(1).move(800, 0, 20);
    const auto motion = libinput.waitForOutput("POINTER_MOTION");
    ASSERT_TRUE(motion);
    EXPECT_THAT(*motion, testing::HasSubstr(clone));
}

TEST(CloneTest, StoppingTheDriverDuringATouchUngrabsTheTouchpadImmediately) {
    auto forwarded = std::make_unique<ForwardedPad>();
    EventReader others(forwarded->pad.node());
    VirtualPad& pad = forwarded->pad;
    forwarded->switchOn();
    pad.write(together({fingerDown(0, 7, 1000, 500), {leftDown}}));
    forwarded->readClone();
    EXPECT_TRUE(forwarded->clone->isPressed(BTN_LEFT));
    others.read();
    forwarded->session.stop();
    EXPECT_TRUE(cloneNodes().empty());
    pad.write(fingerMove(0, 1100, 500));
    const auto received = others.read();
    EXPECT_TRUE(contains(received, {EV_ABS, ABS_MT_POSITION_X, 1100}));
}

TEST(CloneTest, CloneIsRemovedAndRecreatedWithItsTouchpad) {
    ForwardedPad forwarded;
    forwarded.switchOn();
    auto& pad = forwarded.pad;
    for (std::int32_t round = 0; round < 3; ++round) {
        pad.write(together({fingerDown(0, 7, 1000, 500), {leftDown}}));
        EXPECT_TRUE(contains(forwarded.readClone(), leftDown));
        pad.unplug();
        EXPECT_TRUE(forwarded.clone->waitUntilGone());
        EXPECT_TRUE(waitForCloneCount(0));
        pad.plugIn();
        ASSERT_TRUE(forwarded.session.waitUntilReading(pad));
        forwarded.readNewClone();
    }
    pad.write(together({fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 600), {leftDown}}));
    EXPECT_FALSE(contains(forwarded.readClone(), leftDown));
}

TEST(CloneTest, GrabWaitsUntilAnotherProgramUngrabsAndTheTouchpadIsNeutral) {
    ForwardedPad forwarded;
    auto& pad = forwarded.pad;
    ASSERT_TRUE(forwarded.others.grab());
    forwarded.switchOn();
    pad.write(together({fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 600), {leftDown}}));
    EXPECT_TRUE(contains(forwarded.others.readUntil(leftDown), leftDown));
    pad.write(together({fingerUp(0), fingerUp(1), {leftUp}}));
    forwarded.others.readUntil(leftUp);
    forwarded.others.ungrab();
    pad.write(fingerDown(0, 9, 1000, 500));
    pad.write(fingerUp(0));
    forwarded.others.readUntil({EV_ABS, ABS_MT_TRACKING_ID, -1});
    forwarded.session.waitUntilAsleep();
    EXPECT_TRUE(forwarded.clone->isQuiet());
    pad.write(fingerDown(0, 10, 1000, 500));
    EXPECT_TRUE(contains(forwarded.readClone(), {EV_ABS, ABS_MT_TRACKING_ID, 10}));
    EXPECT_TRUE(forwarded.others.isQuiet());
}

TEST(CloneTest, PassesAllClicksWithoutAccessToUinput) {
    VirtualPad pad(ordinaryPad());
    ASSERT_EQ(chmod(pad.node().c_str(), 0666), 0);
    ASSERT_EQ(chmod("/dev/uinput", 0600), 0);
    EventReader others(pad.node());
    std::unique_ptr<DriverSession> session;
    std::unique_ptr<ClickFilterSession> filter;
    {
        const Unprivileged unprivileged;
        session = std::make_unique<DriverSession>();
        filter = std::make_unique<ClickFilterSession>(*session);
        EXPECT_FALSE(filter->isPossible());
    }
    EXPECT_TRUE(filter->isPossible());
    filter->switchOn(true);
    session->waitUntilAsleep();
    pad.write(together({fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 600), {leftDown}}));
    pad.write(together({fingerUp(0), fingerUp(1), {leftUp}}));
    EXPECT_TRUE(contains(others.readUntil(leftUp), leftDown));
    session->settle(pad);
    EXPECT_TRUE(filter->asked().empty());
    EXPECT_TRUE(cloneNodes().empty());

    // The user gets access to uinput, and the program switches the filter on again.
    ASSERT_EQ(chmod("/dev/uinput", 0666), 0);
    filter->switchOn(true);
    session->waitUntilAsleep();
    EXPECT_FALSE(waitForClone().empty());
}

TEST(CloneTest, CloneMatchesTheTouchpadAfterTheDriverLosesEvents) {
    constexpr std::int32_t manyFrames = 200; // more than the kernel's event buffer holds
    ForwardedPad forwarded;
    forwarded.switchOn();
    auto& pad = forwarded.pad;
    pad.write(fingerDown(0, 7, 1000, 500));
    forwarded.readClone();
    // The driver is blocked in the report of the second finger and reads none of the following
    // events. Afterwards it writes at most the frames of one kernel buffer, so the clone's reader
    // loses no event.
    forwarded.session.forget();
    forwarded.session.holdReports();
    pad.write(fingerDown(1, 8, 2000, 500));
    ASSERT_TRUE(
        forwarded.session.waitUntil("the second finger", [](const DriverSession::Seen& seen) {
            return !seen.reports.empty();
        }));
    for (std::int32_t step = 1; step <= manyFrames; ++step) {
        pad.write(fingerMove(0, 1000 + step, 500 + step % 2));
    }
    pad.write(together({fingerUp(1), fingerDown(2, 9, 3000, 700), {leftDown}}));
    ASSERT_TRUE(forwarded.session.releaseReports());
    const auto frames = forwarded.readClone();
    EXPECT_LT(frames.size(), static_cast<std::size_t>(manyFrames)) << "no events were lost";
    EXPECT_EQ(forwarded.filter.asked(), (std::vector<AskedClick>{{down, 0, 2}}));
    EXPECT_FALSE(contains(frames, leftDown));
    EXPECT_TRUE(forwarded.clone->isTouched());
    const auto tools = [&] {
        return forwarded.clone->slotValues(ABS_MT_TOOL_TYPE);
    };
    EXPECT_THAT(tools(), testing::ElementsAre(MT_TOOL_PALM, 0, MT_TOOL_PALM, 0, 0));

    pad.write(fingerUp(0));
    pad.write(together({fingerUp(2), {leftUp}}));
    EXPECT_FALSE(contains(forwarded.readClone(), leftUp));
    EXPECT_FALSE(forwarded.clone->isTouched());
    EXPECT_THAT(tools(), testing::Each(MT_TOOL_FINGER));
}

TEST(CloneTest, LostButtonReleaseLeavesNoFingerMarkedAsAPalm) {
    constexpr std::int32_t manyFrames = 200; // more than the kernel's event buffer holds
    ForwardedPad forwarded;
    forwarded.switchOn();
    auto& pad = forwarded.pad;
    pad.write(together({fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 2000, 500), {leftDown}}));
    forwarded.readClone();
    EXPECT_THAT(forwarded.clone->slotValues(ABS_MT_TOOL_TYPE),
                testing::ElementsAre(MT_TOOL_PALM, MT_TOOL_PALM, 0, 0, 0));
    forwarded.session.forget();
    forwarded.session.holdReports();
    pad.write(fingerMove(0, 1001, 500));
    ASSERT_TRUE(forwarded.session.waitUntil(
        "the motion", [](const DriverSession::Seen& seen) { return !seen.reports.empty(); }));
    pad.write(together({fingerUp(1), {leftUp}}));
    for (std::int32_t step = 2; step <= manyFrames; ++step) {
        pad.write(fingerMove(0, 1000 + step, 500 + step % 2));
    }
    ASSERT_TRUE(forwarded.session.releaseReports());
    EXPECT_LT(forwarded.readClone().size(), static_cast<std::size_t>(manyFrames))
        << "no events were lost";
    EXPECT_EQ(forwarded.filter.asked(), (std::vector<AskedClick>{{down, 0, 2}, {up, 0, 1}}));
    EXPECT_TRUE(forwarded.clone->isTouched());
    EXPECT_THAT(forwarded.clone->slotValues(ABS_MT_TOOL_TYPE), testing::Each(MT_TOOL_FINGER));
}

std::map<int, std::int64_t> sleeps(const std::vector<int>& threads) {
    std::map<int, std::int64_t> counts;
    for (const int thread : threads) {
        counts[thread] = sleepsOf(thread);
    }
    return counts;
}

TEST(CloneTest, DriverSleepsWhileItForwardsAnUntouchedTouchpad) {
    ForwardedPad forwarded;
    VirtualPad busy(otherPad());
    EventReader reader(busy.node());
    forwarded.switchOn();
    const std::vector<int> threads = threadsNamed("glidemap-");
    EXPECT_EQ(threads.size(), 3U) << "the threads of the reader, the watchdog and the stop signals";
    forwarded.pad.write(fingerDown(0, 7, 1000, 500));
    forwarded.pad.write(fingerUp(0));
    forwarded.readClone();
    const Deadline deadline;
    while (!areAsleep(threads) && !deadline.passed()) {
        sched_yield();
    }

    const auto counts = sleeps(threads);
    const Deadline longerThanTheWatchdogsPatience{std::chrono::seconds(2)};
    for (std::int32_t step = 1; !longerThanTheWatchdogsPatience.passed(); ++step) {
        busy.write(fingerMove(0, step % ordinaryWidth, step % ordinaryHeight));
        reader.read();
    }
    EXPECT_EQ(sleeps(threads), counts);
}

} // namespace
} // namespace glidemap::test
