// Runs the agent for ten minutes under random actions of a person and a machine: fast and slow
// gestures, clicks, touchpads that are unplugged and reconnected, a second touchpad, stalls in the
// middle of a touch, inactive sessions, sleep, and locked screens. libinput reads the clones, as on
// a desktop.
//
// After every few actions, the agent must recognise a tap, forward the touchpad and hold no key.
// Its resources are measured after the first minute and at the end: the number of descriptors and
// the threads must not have changed, and the memory may have grown only slightly. After the agent
// has exited, no clone, keyboard or grab may remain.
//
// GLIDEMAP_SOAK_SECONDS sets the duration (600), GLIDEMAP_SOAK_SEED the random actions. The test
// prints both.
#include "agent_session.h"
#include "deadline.h"
#include "desktops/fake_service.h"
#include "desktops/private_bus.h"
#include "device_reader.h"
#include "event_reader.h"
#include "input_devices.h"
#include "kit/in_environment.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "performer.h"
#include "real_time.h"
#include "threads.h"
#include "virtual_pad.h"

#include <gio/gio.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <sched.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <iostream>
#include <memory>
#include <random>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using testing::IsEmpty;

constexpr const char* keyboardName = "Glidemap Keyboard";
constexpr const char* marker = "threeFingerTap";

// The memory may grow, because the program keeps recent gestures, and its libraries keep freed
// memory.
constexpr long maxGrowth = 2048; // KiB

// In seconds, long enough that two gestures do not count as one gesture.
constexpr double betweenGestures = 0.7;

unsigned fromEnvironment(const char* name, unsigned otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

struct Holdings {
    std::size_t descriptors = 0;
    std::vector<std::string> threads; // their names, sorted
    long memory = 0;                  // KiB of private memory

    friend std::ostream& operator<<(std::ostream& stream, const Holdings& held) {
        return stream << held.descriptors << " descriptors, " << held.threads.size() << " threads, "
                      << held.memory << " KiB";
    }
};

std::size_t entriesIn(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

std::vector<std::string> threadsIn(const std::filesystem::path& folder) {
    std::vector<std::string> names;
    for (const auto& thread : std::filesystem::directory_iterator(folder)) {
        std::string name;
        std::getline(std::ifstream(thread.path() / "comm"), name);
        names.push_back(name);
    }
    std::ranges::sort(names);
    return names;
}

// GLib starts threads for single tasks, and ends them when they have been idle for some seconds.
bool hasPoolThreads(const Holdings& held) {
    return std::ranges::any_of(held.threads,
                               [](const std::string& name) { return name.starts_with("pool"); });
}

Holdings holdingsOf(pid_t process) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    Holdings held{entriesIn(folder / "fd"), threadsIn(folder / "task"), 0};
    std::ifstream status(folder / "status");
    for (std::string word; status >> word;) {
        if (word == "RssAnon:") {
            status >> held.memory;
        }
    }
    return held;
}

const ServiceDescription logind{
    "org.freedesktop.login1",
    "/org/freedesktop/login1/session/auto",
    "<interface name='org.freedesktop.login1.Session'>"
    "<property name='Active' type='b' access='read'/>"
    "<property name='LockedHint' type='b' access='read'/></interface>"
    "<interface name='org.freedesktop.login1.Manager'>"
    "<signal name='PrepareForSleep'><arg type='b'/></signal></interface>",
    {},
    {{"Active", true}}};

class SoakTest : public testing::Test {
protected:
    SoakTest() {
        setenv("GLIDEMAP_LOG", "1", 1);
        home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0)),
                            bindingJson("threeFingerClick", shortcutJson(16, 0x20000)),
                            bindingJson("twoFingerTap", shortcutJson(18, 0x40000)),
                            bindingJson("threeFingerSwipeUp", shortcutJson(19, 0))});
        agent = std::make_unique<Agent>();
    }

    void SetUp() override {
        if (!std::filesystem::exists("/usr/bin/libinput")) {
            GTEST_SKIP() << "libinput-tools is not installed";
        }
        desktop = std::make_unique<Process>(std::vector<std::string>{
            "/bin/sh", "-c", "exec /usr/bin/libinput debug-events >/dev/null"});
        ASSERT_TRUE(desktop->waitUntilReading(pad.node()));
    }

    int random(int below) { return std::uniform_int_distribution(0, below - 1)(numbers); }

    void actAtRandom() {
        switch (random(13)) {
        case 0:
            return performOn(pad, allGestureTypes[static_cast<std::size_t>(
                                      random(static_cast<int>(allGestureTypes.size())))]);
        case 1:
            return replug();
        case 2:
            return plugSecond();
        case 3:
            return stopInTheMiddle(SIGSTOP);
        case 4:
            return stopInTheMiddle(SIGTSTP);
        case 5:
            return leave([this](bool away) { announce("Active", !away); },
                         [this] { expectNoKeyboard(); });
        case 6:
            return leave([this](bool away) { announceSleep(away); }, [] {});
        case 7:
            return lock();
        default:
            return hurry();
        }
    }

    // Performs taps, clicks and moves without pauses, as fast as the kernel accepts events.
    void hurry() {
        for (int times = random(30); times >= 0; --times) {
            const int fingers = 1 + random(4);
            switch (random(3)) {
            case 0:
                hand.tap(fingers);
                break;
            case 1:
                hand.click(fingers);
                break;
            default:
                hand.down(fingers).move(random(600) - 300, random(400) - 200, 1 + random(4)).up();
            }
        }
    }

    void replug() {
        if (random(2) == 0) {
            hand.down(1 + random(3)).press();
        }
        pad.unplug();
        hand.pause(random(100) / 100.0);
        pad.plugIn();
    }

    void plugSecond() {
        VirtualPad second(ordinaryPad(), "virtual/second");
        PadHand other(second);
        other.pause(random(100) / 100.0);
        other.click(2).pause(0.01 * random(30));
    }

    void stopInTheMiddle(int signal) {
        constexpr double aStall = 1.2;
        hand.down(1 + random(3));
        const bool pressed = random(2) == 0;
        if (pressed) {
            hand.press();
        }
        agent->send(signal);
        hand.move(200, 100, 5).pause(random(2) == 0 ? aStall : 0.05);
        if (random(2) == 0) {
            agent->send(SIGCONT);
            hand.pause(0.01 * random(20));
        }
        if (pressed) {
            hand.release();
        }
        hand.up();
        agent->send(SIGCONT);
    }

    // Makes the session inactive or lets the machine sleep, depending on `set`. Then undoes the
    // change, sometimes so soon that the program may not notice it.
    void leave(const std::function<void(bool away)>& set, const std::function<void()>& expectMore) {
        const bool touched = random(2) == 0;
        if (touched) {
            hand.down(1 + random(4)).press();
        }
        set(true);
        if (random(3) != 0) {
            expectPadGivenBack();
            expectMore();
        }
        if (touched) {
            hand.release().up();
        }
        hurry();
        set(false);
    }

    void lock() {
        announce("LockedHint", true);
        hurry();
        announce("LockedHint", false);
    }

    void announce(const char* property, bool value) {
        fakeLogind.setAndAnnounce(property, value, "org.freedesktop.login1.Session",
                                  "/org/freedesktop/login1/session/_31");
    }

    void announceSleep(bool sleeps) {
        fakeLogind.announce("org.freedesktop.login1.Manager", "PrepareForSleep",
                            g_variant_new("(b)", sleeps ? TRUE : FALSE));
    }

    static void expectNoKeyboard() {
        for (const auto& keyboard : nodesNamed(keyboardName)) {
            EXPECT_TRUE(waitForNoNode(keyboard));
        }
    }

    // Expects that no clone remains, and that the program has closed the touchpad.
    void expectPadGivenBack() {
        const auto isReading = [this] {
            return hasOpen(std::to_string(agent->id()), pad.node());
        };
        EXPECT_TRUE(waitForCloneCount(0));
        for (const Deadline deadline; isReading() && !deadline.passed();) {
            sched_yield();
        }
        EXPECT_FALSE(isReading());
        expectNotGrabbed();
    }

    void expectNotGrabbed() const {
        EventReader others(pad.node());
        EXPECT_TRUE(others.grab()) << "another program has the touchpad";
        others.ungrab();
    }

    // Checks that the program recognises a tap, that one clone forwards the touchpad, and that no
    // key or button is down.
    void expectWell() {
        hand.pause(betweenGestures);
        EXPECT_TRUE(agent->waitUntilAsleep());
        EXPECT_TRUE(recognisesTap()) << agent->errors();
        EXPECT_TRUE(waitForCloneCount(1));
        const auto clones = cloneNodes();
        ASSERT_EQ(clones.size(), 1U);
        DeviceReader reader(clones.front());
        hand.waitUntilTaken(reader);
        EXPECT_TRUE(agent->waitUntilAsleep());
        const EventReader clone(clones.front());
        EXPECT_FALSE(clone.isTouched());
        EXPECT_FALSE(clone.isPressed(BTN_LEFT));
        const auto keyboards = nodesNamed(keyboardName);
        ASSERT_EQ(keyboards.size(), 1U);
        const EventReader keyboard(keyboards.front());
        for (const int key : {KEY_LEFTSHIFT, KEY_LEFTCTRL, KEY_T, KEY_Y}) {
            EXPECT_FALSE(keyboard.isPressed(key)) << key;
        }
    }

    // On a busy machine, a late movement may become another gesture, so the hand retries.
    bool recognisesTap() {
        constexpr int maxAttempts = 10;
        agent->readOutput();
        for (int attempt = 0; attempt < maxAttempts; ++attempt) {
            const std::size_t before = markers();
            hand.tap(3).pause(betweenGestures);
            if (agent->waitForLines(marker, before + 1, std::chrono::seconds(10))) {
                return true;
            }
        }
        return false;
    }

    std::size_t markers() const {
        std::size_t count = 0;
        for (std::size_t at = 0; (at = agent->output().find(marker, at)) != std::string::npos;
             ++at) {
            ++count;
        }
        return count;
    }

    // While a touchpad is missing, the program holds two more descriptors to wait for its return.
    // Making the session inactive and active again closes them.
    Holdings measure() {
        announce("Active", false);
        expectPadGivenBack();
        expectNoKeyboard();
        announce("Active", true);
        expectWell();
        Holdings held = holdingsOf(agent->id());
        for (const Deadline deadline; hasPoolThreads(held) && !deadline.passed();) {
            sched_yield();
            held = holdingsOf(agent->id());
        }
        return held;
    }

    void soakUntil(double moment) {
        constexpr int actionsBetweenLooks = 5;
        while (monotonicNow() < moment && !HasFailure()) {
            for (int action = 0; action < actionsBetweenLooks; ++action) {
                actAtRandom();
            }
            expectWell();
            ++rounds;
        }
    }

    const unsigned seconds = fromEnvironment("GLIDEMAP_SOAK_SECONDS", 600);
    const unsigned seed = fromEnvironment("GLIDEMAP_SOAK_SEED", std::random_device()());
    std::mt19937 numbers{seed};
    int rounds = 0;
    AgentHome home;
    Journal journal;
    PrivateBus systemBus;
    PrivateBus sessionBus;
    InEnvironment system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address().c_str()};
    InEnvironment session{"DBUS_SESSION_BUS_ADDRESS", sessionBus.address().c_str()};
    FakeService fakeLogind{systemBus.address(), logind, journal};
    VirtualPad pad{ordinaryPad()};
    PadHand hand{pad};
    std::unique_ptr<Agent> agent;
    std::unique_ptr<Process> desktop;
};

TEST_F(SoakTest, LeaksNothingAndLeavesNothingGrabbedOrPressed) {
    constexpr double aMinute = 60;
    std::cout << "GLIDEMAP_SOAK_SECONDS=" << seconds << " GLIDEMAP_SOAK_SEED=" << seed << std::endl;
    const double start = monotonicNow();
    soakUntil(start + std::min<double>(aMinute, seconds / 2.0));
    const Holdings before = measure();
    soakUntil(start + seconds);
    const Holdings after = measure();
    std::cout << rounds << " rounds; after the first minute " << before << "; at the end " << after
              << std::endl;
    EXPECT_EQ(after.descriptors, before.descriptors);
    EXPECT_EQ(after.threads, before.threads);
    EXPECT_LE(after.memory, before.memory + maxGrowth);

    agent->send(SIGTERM);
    EXPECT_EQ(agent->waitForEnd(), 0) << agent->errors();
    EXPECT_TRUE(waitForCloneCount(0));
    EXPECT_THAT(nodesNamed(keyboardName), IsEmpty());
    expectNotGrabbed();
    const EventReader others(pad.node());
    EXPECT_FALSE(others.isTouched());
    EXPECT_FALSE(others.isPressed(BTN_LEFT));
}

} // namespace
} // namespace glidemap::test
