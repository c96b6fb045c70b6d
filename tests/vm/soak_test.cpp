// Stresses the agent for ten minutes with random actions: fast and slow gestures, clicks,
// unplugging and replugging, a second pad, and SIGSTOPs during a touch that are long enough to be a
// stall.
//
//   start ─ a minute ─▶ measured ─ … every few actions it must recognise, type, have its clone … ─▶
//   measured again: as many descriptors and threads, no more memory ─▶ ended: nothing is left
//
// GLIDEMAP_SOAK_SECONDS sets the duration (600), GLIDEMAP_SOAK_SEED the random actions. The test
// prints both.
#include "agent_session.h"
#include "event_reader.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "performer.h"
#include "real_time.h"
#include "threads.h"
#include "virtual_pad.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <random>
#include <string>

namespace glidemap::vm {
namespace {

using testing::IsEmpty;

constexpr const char* keyboardName = "Glidemap Keyboard";
constexpr const char* marker = "threeFingerTap";

// The program keeps the last gestures, and its libraries keep freed memory.
constexpr long maxGrowth = 2048; // KiB

// Long enough that two gestures are not taken for one.
constexpr double betweenGestures = 0.7;

unsigned fromEnvironment(const char* name, unsigned otherwise) {
    const char* value = std::getenv(name);
    return value != nullptr ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : otherwise;
}

struct Holdings {
    std::size_t descriptors = 0;
    std::size_t threads = 0;
    long memory = 0; // KiB of its own

    friend std::ostream& operator<<(std::ostream& stream, const Holdings& held) {
        return stream << held.descriptors << " descriptors, " << held.threads << " threads, "
                      << held.memory << " KiB";
    }
};

std::size_t entriesIn(const std::filesystem::path& folder) {
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder), {}));
}

Holdings holdingsOf(pid_t process) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    Holdings held{entriesIn(folder / "fd"), entriesIn(folder / "task"), 0};
    std::ifstream status(folder / "status");
    for (std::string word; status >> word;) {
        if (word == "RssAnon:") {
            status >> held.memory;
        }
    }
    return held;
}

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

    int random(int below) { return std::uniform_int_distribution(0, below - 1)(numbers); }

    void actAtRandom() {
        switch (random(10)) {
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
        default:
            return hurry();
        }
    }

    // Taps, clicks and moves without pauses, as fast as the kernel accepts events.
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

    // Expects that the agent recognises a tap, has one clone and holds no key or button.
    void expectWell() {
        hand.pause(betweenGestures);
        EXPECT_TRUE(agent->waitUntilAsleep());
        EXPECT_TRUE(recognisesTap()) << agent->errors();
        EXPECT_TRUE(waitForCloneCount(1));
        EXPECT_TRUE(agent->waitUntilAsleep());
        const auto clones = cloneNodes();
        ASSERT_EQ(clones.size(), 1U);
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
        agent->waitForLines(marker, 0, std::chrono::seconds(0));
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

    Holdings measure() {
        expectWell();
        return holdingsOf(agent->id());
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
    VirtualPad pad{ordinaryPad()};
    PadHand hand{pad};
    std::unique_ptr<Agent> agent;
};

TEST_F(SoakTest, HoldsAndLeaksNothing) {
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
    EventReader others(pad.node());
    EXPECT_TRUE(others.grab()) << "no program has the touchpad";
    others.ungrab();
    EXPECT_FALSE(others.isTouched());
    EXPECT_FALSE(others.isPressed(BTN_LEFT));
}

} // namespace
} // namespace glidemap::vm
