// Tests a desktop that uses a touchpad while the program grabs and ungrabs it. The desktop must
// receive each click, each motion and each scroll once, from the touchpad or from its clone.
//
//   hand ─▶ touchpad ──▶ libinput ◀── clone ◀─ driver
//
// The times are random, with a fixed seed.

#include "click_filter_session.h"
#include "deadline.h"
#include "driver_session.h"
#include "intercepted_calls.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "process.h"
#include "real_time.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <memory>
#include <random>
#include <sstream>
#include <string>
#include <thread>

namespace glidemap::test {
namespace {

// The interval between two reports of a touchpad, in seconds.
constexpr double aMoment = 0.01;

// The sums of the events that libinput has reported so far.
struct Received {
    int presses = 0;
    int releases = 0;
    double motion = 0;   // to the right, before acceleration
    double scrolled = 0; // downwards
};

using Call = InterceptedCalls::Call;

class GrabTest : public testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists("/usr/bin/libinput")) {
            GTEST_SKIP() << "libinput-tools is not installed";
        }
        desktop = std::make_unique<Process>(std::vector<std::string>{
            "/usr/bin/stdbuf", "-oL", "/usr/bin/libinput", "debug-events"});
        ASSERT_TRUE(desktop->waitForOutput("DEVICE_ADDED"));
        ASSERT_TRUE(desktop->waitUntilReading(pad.node()));
    }

    double random(double from, double to) {
        return std::uniform_real_distribution(from, to)(generator);
    }

    // Clicks with one finger.
    void click() {
        hand.down(1).pause(aMoment).press().pause(aMoment).release().pause(aMoment).up();
        ++clicks;
    }

    void point() { move(1, 400, 0); }
    void scroll() { move(2, 0, 400); }

    void move(int fingers, int dx, int dy) {
        hand.down(fingers);
        moveAndLift(dx, dy);
    }

    void moveAndLift(int dx, int dy) {
        constexpr int reports = 10;
        for (int step = 0; step < reports; ++step) {
            hand.pause(aMoment).move(dx / reports, dy / reports);
        }
        hand.pause(aMoment).up();
    }

    // Switches the filter on or off, and touches the touchpad exactly when the driver makes the
    // call. Runs `later` before the driver reads the next event.
    void touchWhileSwitching(
        ClickFilterSession& filter, Call call, const std::function<void()>& touch,
        const std::function<void()>& later = [] {}) {
        InterceptedCalls calls;
        calls.atNext(call, touch, later);
        filter.switchOn(call == Call::grab);
        ASSERT_TRUE(calls.wait()) << "the driver did not grab or release the touchpad";
    }

    // Clicks until the driver calls the click filter, which shows that it has grabbed the touchpad.
    void clickUntilAsked(const ClickFilterSession& filter) {
        const Deadline deadline;
        while (filter.asked().empty()) {
            ASSERT_FALSE(deadline.passed()) << "the driver did not grab the touchpad";
            readEvents();
        }
    }

    // Returns the sums of all events so far. Clicks first and waits for the click, because it
    // arrives after all earlier events.
    Received readEvents() {
        hand.pause(0.1);
        click();
        const Deadline deadline(std::chrono::seconds(20));
        Received received = listen();
        while (received.releases < clicks && desktop->waitForMoreOutput(deadline.milliseconds())) {
            received = listen();
        }
        EXPECT_EQ(received.releases, clicks) << "a click was lost";
        return received;
    }

    Received listen() const {
        Received received;
        std::istringstream output(desktop->output());
        for (std::string line; std::getline(output, line);) {
            const bool isButton = line.find("POINTER_BUTTON") != std::string::npos;
            received.presses += isButton && line.find(" pressed") != std::string::npos ? 1 : 0;
            received.releases += isButton && line.find(" released") != std::string::npos ? 1 : 0;
            received.motion += numberAfter(line, "POINTER_MOTION", "(");
            received.scrolled += numberAfter(line, "POINTER_SCROLL_FINGER", "vert");
        }
        return received;
    }

    static double numberAfter(const std::string& line, const char* kind, const char* text) {
        const std::size_t found =
            line.find(kind) != std::string::npos ? line.find(text) : std::string::npos;
        return found != std::string::npos
                   ? std::strtod(line.c_str() + found + std::string(text).size(), nullptr)
                   : 0;
    }

    VirtualPad pad{ordinaryPad()};
    PadHand hand{pad};
    std::unique_ptr<Process> desktop;
    std::mt19937 generator{20240607};
    int clicks = 0;
};

// Tolerates a small difference, but not a lost or duplicated report, which would be a tenth of the
// motion.
void expectNear(double received, double expected, const std::string& what) {
    EXPECT_NEAR(received, expected, std::abs(expected) * 0.04) << what;
}

TEST_F(GrabTest, NoEventIsLostOrDuplicatedInTheFirstSecondAfterTheStart) {
    constexpr int starts = 50;
    point();
    scroll();
    const Received each = readEvents();
    ASSERT_NE(each.motion, 0);
    ASSERT_NE(each.scrolled, 0);
    Received before = each;
    for (int start = 0; start < starts; ++start) {
        DriverSession session;
        ClickFilterSession filter(session);
        filter.switchOn(true);
        hand.pause(random(0, 0.4));
        click();
        hand.pause(random(0, 0.1));
        point();
        hand.pause(random(0, 0.1));
        scroll();
        const Received now = readEvents();
        const std::string what = "start " + std::to_string(start);
        EXPECT_EQ(now.presses, clicks) << what;
        ASSERT_EQ(now.releases, clicks) << what;
        expectNear(now.motion - before.motion, each.motion, what);
        expectNear(now.scrolled - before.scrolled, each.scrolled, what);
        before = now;
    }
}

// On a busy system, a whole touch can pass before the driver's thread runs again.
TEST_F(GrabTest, TouchThatBeginsAtTheGrabIsNotLostIfTheDriverIsSlow) {
    point();
    const Received each = readEvents();
    ASSERT_NE(each.motion, 0);
    DriverSession session;
    ClickFilterSession filter(session);
    ASSERT_NO_FATAL_FAILURE(touchWhileSwitching(
        filter, Call::grab, [&] { hand.down(1); }, [&] { moveAndLift(400, 0); }));
    const Received all = readEvents();
    EXPECT_EQ(all.presses, clicks);
    expectNear(all.motion - each.motion, each.motion, "at the grab");
    ASSERT_NO_FATAL_FAILURE(clickUntilAsked(filter));
}

TEST_F(GrabTest, TouchThatBeginsAtTheReleaseIsNotLost) {
    point();
    const Received each = readEvents();
    ASSERT_NE(each.motion, 0);
    Received before = each;
    for (const Call call : {Call::requestSlots, Call::release}) {
        DriverSession session;
        ClickFilterSession filter(session);
        filter.switchOn(true);
        ASSERT_TRUE(filter.waitUntilIntroduced());
        ASSERT_NO_FATAL_FAILURE(touchWhileSwitching(filter, call, [&] { hand.down(1); }));
        ASSERT_TRUE(session.waitUntilAsleep());
        moveAndLift(400, 0);
        const Received now = readEvents();
        const std::string what = call == Call::release ? "at the release" : "before the release";
        EXPECT_EQ(now.presses, clicks) << what;
        expectNear(now.motion - before.motion, each.motion, what);
        before = now;
    }
}

TEST_F(GrabTest, ClickBeforeTheReleaseIsNotLost) {
    DriverSession session;
    ClickFilterSession filter(session);
    filter.switchOn(true);
    ASSERT_TRUE(filter.waitUntilIntroduced());
    ASSERT_NO_FATAL_FAILURE(touchWhileSwitching(filter, Call::requestSlots, [&] { click(); }));
    const Received all = readEvents();
    EXPECT_EQ(all.presses, clicks);
    EXPECT_EQ(all.releases, clicks);
}

TEST_F(GrabTest, NoEventIsLostOrDuplicatedWhileTheFilterIsSwitchedOnAndOff) {
    constexpr int switches = 200;
    point();
    scroll();
    const Received each = readEvents();
    DriverSession session;
    ClickFilterSession filter(session);
    std::atomic<bool> done = false;
    std::thread switching([&] {
        std::mt19937 moments(7);
        for (int count = 0; count < switches; ++count) {
            filter.switchOn(count % 2 == 0);
            // The pauses are random, like those of the hand.
            const double pause = std::uniform_real_distribution(0.0, 0.4)(moments);
            letTimePassUntil(monotonicNow() + pause);
        }
        done = true;
    });
    int rounds = 1;
    for (; !done; ++rounds) {
        click();
        hand.pause(random(0, 0.1));
        point();
        hand.pause(random(0, 0.1));
        scroll();
        hand.pause(random(0, 0.1));
        while (desktop->waitForMoreOutput(0)) {
            // Drain the output: a desktop blocked on a full pipe would stop reading events.
        }
    }
    switching.join();
    const Received all = readEvents();
    EXPECT_EQ(all.presses, clicks);
    EXPECT_EQ(all.releases, clicks);
    const auto expected = static_cast<double>(rounds);
    EXPECT_NEAR(all.motion / each.motion, expected, 0.5);
    EXPECT_NEAR(all.scrolled / each.scrolled, expected, 0.5);
    EXPECT_FALSE(filter.asked().empty()) << "the driver did not grab the touchpad";
}

} // namespace
} // namespace glidemap::test
