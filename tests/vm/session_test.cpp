// Tests the program while its session becomes inactive or locked, and while touchpads and access
// appear: on a real kernel, with a fake logind on a private bus.

#include "access_list.h"
#include "agent_session.h"
#include "desktops/fake_service.h"
#include "desktops/private_bus.h"
#include "device_reader.h"
#include "input_devices.h"
#include "kit/in_environment.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "unprivileged.h"
#include "virtual_pad.h"

#include <gio/gio.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>

namespace glidemap::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* keyboardName = "Glidemap Keyboard";
constexpr const char* uinput = "/dev/uinput";

// In seconds, longer than the program's limit between the two taps of a double tap.
constexpr double betweenGestures = 0.6;

const std::string typesT = bindingJson("twoFingerClick", shortcutJson(17, 0));
const std::string tapTypesS = bindingJson("threeFingerTap", shortcutJson(1, 0));

long countOf(const DeviceReader& reader, std::uint16_t code, std::int32_t value) {
    return std::ranges::count(reader.events(), PadEvent{EV_KEY, code, value});
}

ServiceDescription logind(bool isActive) {
    return {"org.freedesktop.login1",
            "/org/freedesktop/login1/session/auto",
            "<interface name='org.freedesktop.login1.Session'>"
            "<property name='Active' type='b' access='read'/>"
            "<property name='LockedHint' type='b' access='read'/></interface>"
            "<interface name='org.freedesktop.login1.Manager'>"
            "<signal name='PrepareForSleep'><arg type='b'/></signal></interface>",
            {},
            {{"Active", isActive}}};
}

class SessionTest : public testing::Test {
protected:
    void set(FakeService& manager, const char* property, bool value) {
        manager.setAndAnnounce(property, value, "org.freedesktop.login1.Session",
                               "/org/freedesktop/login1/session/_31");
    }

    static void announceSleep(FakeService& manager, bool sleeps) {
        manager.announce("org.freedesktop.login1.Manager", "PrepareForSleep",
                         g_variant_new("(b)", sleeps ? TRUE : FALSE));
    }

    // Returns when the program has read the new state. The program queries the state after each
    // announcement. When the fake receives the second query, it has replied to the first query. The
    // third announcement follows that reply on the bus, so the program has read the reply when it
    // sends the third query.
    void setLocked(FakeService& manager, bool isLocked) {
        constexpr int rounds = 3;
        ASSERT_TRUE(journal.waitForCount("login1 get LockedHint", readings)) << "the watch is set";
        for (int round = 0; round < rounds; ++round) {
            set(manager, "LockedHint", isLocked);
            ASSERT_TRUE(journal.waitForCount("login1 get LockedHint", ++readings));
        }
    }

    std::filesystem::path cloneNode() const {
        return waitForNode(pad.shape().name, pad.node()).value_or("/dev/null");
    }
    static std::filesystem::path keyboardNode() {
        return waitForNode(keyboardName).value_or("/dev/null");
    }

    // Returns the number of gestures in the agent's log so far.
    static std::size_t gestures(Agent& agent) {
        agent.readOutput();
        std::size_t count = 0;
        for (std::size_t at = 0; (at = agent.output().find("→", at)) != std::string::npos; ++at) {
            ++count;
        }
        return count;
    }

    bool isReading(const Agent& agent) const {
        return hasOpen(std::to_string(agent.id()), pad.node());
    }

    AgentHome home;
    Journal journal;
    long readings = 2; // the program queries the session twice on startup
    PrivateBus systemBus;
    PrivateBus sessionBus;
    InEnvironment system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address().c_str()};
    InEnvironment session{"DBUS_SESSION_BUS_ADDRESS", sessionBus.address().c_str()};
    VirtualPad pad{ordinaryPad()};
    PadHand hand{pad};
};

// ── an inactive session ──

TEST_F(SessionTest, InactiveSessionHasNoKeyboardAndDoesNotReadTheTouchpad) {
    FakeService manager(systemBus.address(), logind(true), journal);
    home.writeBindings({typesT, tapTypesS});
    Agent agent;
    for (int turn = 0; turn < 3; ++turn) {
        const std::filesystem::path keyboard = keyboardNode();
        const std::filesystem::path clone = cloneNode();
        {
            DeviceReader keys(keyboard);
            DeviceReader reader(clone);
            hand.waitUntilTaken(reader);
            hand.click(2);
            EXPECT_TRUE(keys.waitForKey(KEY_T, 0)) << "turn " << turn;
        }
        set(manager, "Active", false);
        EXPECT_TRUE(waitForNoNode(keyboard));
        EXPECT_TRUE(waitForNoNode(clone));
        EXPECT_TRUE(agent.waitUntilAsleep());
        EXPECT_FALSE(isReading(agent));
        DeviceReader another(pad.node());
        EXPECT_FALSE(another.isGrabbedByAnother());
        hand.click(2);
        EXPECT_TRUE(another.waitForKey(BTN_LEFT, 0)) << "the other user's click must pass";
        hand.pause(betweenGestures);
        hand.tap(3);
        EXPECT_THAT(nodesNamed(keyboardName), IsEmpty());
        set(manager, "Active", true);
    }
    EXPECT_THAT(nodesNamed(keyboardName), testing::SizeIs(testing::Le(1U)));
    EXPECT_THAT(agent.output(), Not(HasSubstr("threeFingerTap")));
}

TEST_F(SessionTest, WaitsForAnActiveSessionOnStartup) {
    FakeService manager(systemBus.address(), logind(false), journal);
    home.writeBindings({typesT});
    Agent agent;
    ASSERT_TRUE(journal.waitForCount("login1 get Active", 2)) << "the watch is set";
    while (!nodesNamed(keyboardName).empty()) {
        waitForNoNode(nodesNamed(keyboardName).front());
    }
    set(manager, "Active", true);
    DeviceReader keys(keyboardNode());
    DeviceReader clone(cloneNode());
    hand.waitUntilTaken(clone);
    hand.click(2);
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
}

TEST_F(SessionTest, TouchpadPluggedInDuringAnInactiveSessionIsReadOnActivation) {
    pad.unplug();
    FakeService manager(systemBus.address(), logind(true), journal);
    home.writeBindings({typesT});
    Agent agent;
    const std::filesystem::path keyboard = keyboardNode();
    set(manager, "Active", false);
    ASSERT_TRUE(waitForNoNode(keyboard));
    pad.plugIn();
    set(manager, "Active", true);
    DeviceReader keys(keyboardNode());
    DeviceReader clone(cloneNode());
    hand.waitUntilTaken(clone);
    hand.click(2);
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
}

// ── the machine sleeps ──

// The monotonic clock stops during sleep. Without special handling, a touch, a tap that waits for a
// second tap, and a held button would continue after sleep.
TEST_F(SessionTest, SleepEndsTouchesAndButtonPresses) {
    FakeService manager(systemBus.address(), logind(true), journal);
    home.writeBindings({typesT, bindingJson("twoFingerDoubleTap", shortcutJson(1, 0)),
                        bindingJson("twoFingerTap", shortcutJson(2, 0)),
                        bindingJson("threeFingerLongPress", shortcutJson(3, 0))});
    Agent agent;
    ASSERT_TRUE(journal.waitForCount("login1 get LockedHint", readings)) << "the watch is set";
    DeviceReader keys(keyboardNode()); // stays open: the keyboard must survive sleep
    for (int turn = 0; turn < 3; ++turn) {
        const std::filesystem::path clone = cloneNode();
        DeviceReader reader(clone);
        hand.waitUntilTaken(reader);
        hand.pause(betweenGestures).tap(2).down(3).press();
        ASSERT_TRUE(reader.waitForKey(BTN_LEFT, 1)) << "turn " << turn;

        announceSleep(manager, true);
        ASSERT_TRUE(waitForNoNode(clone)) << "turn " << turn;
        EXPECT_TRUE(agent.waitUntilAsleep());
        EXPECT_FALSE(isReading(agent));
        EXPECT_FALSE(DeviceReader(pad.node()).isGrabbedByAnother());
        hand.release().up();
        // Counts the gestures only now, because on a slow machine the agent may log an earlier
        // gesture late.
        const std::size_t before = gestures(agent);

        announceSleep(manager, false);
        DeviceReader again(cloneNode());
        hand.waitUntilTaken(again);
        hand.pause(betweenGestures);
        hand.click(2);
        EXPECT_TRUE(keys.waitForKey(KEY_T, 0)) << "turn " << turn;
        keys.forget();
        EXPECT_TRUE(agent.waitForLines("twoFingerClick →", static_cast<std::size_t>(turn) + 1,
                                       std::chrono::seconds(60)));
        EXPECT_EQ(gestures(agent), before + 1) << agent.output();
    }
}

// ── a locked screen ──

TEST_F(SessionTest, TypesNothingAndForwardsClicksWhileLocked) {
    FakeService manager(systemBus.address(), logind(true), journal);
    home.writeBindings(
        {typesT, tapTypesS, bindingJson("fourFingerTap", R"({"kind":"lockScreen"})")});
    Agent agent;
    DeviceReader keys(keyboardNode());
    DeviceReader clone(cloneNode());
    hand.waitUntilTaken(clone);
    hand.click(2);
    ASSERT_TRUE(keys.waitForKey(KEY_T, 0));
    setLocked(manager, true);
    hand.pause(betweenGestures);
    clone.forget();
    hand.click(2);
    EXPECT_TRUE(clone.waitForKey(BTN_LEFT, 0));
    hand.pause(betweenGestures);
    hand.tap(3);
    hand.pause(betweenGestures);
    setLocked(manager, false);
    hand.click(2);
    EXPECT_TRUE(keys.waitUntil([&] { return countOf(keys, KEY_T, 0) == 2; }));
    EXPECT_EQ(countOf(keys, KEY_S, 1), 0);
    EXPECT_THAT(agent.output(), Not(HasSubstr("threeFingerTap")));
}

// ── touchpads and access that appear while the program runs ──

TEST_F(SessionTest, DetectsTheFirstTouchpadAfterTheStart) {
    pad.unplug();
    home.writeBindings({typesT});
    Agent agent;
    DeviceReader keys(keyboardNode());
    pad.plugIn();
    DeviceReader clone(cloneNode());
    hand.waitUntilTaken(clone);
    hand.click(2);
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
}

TEST_F(SessionTest, ReadsASecondTouchpadAlongsideTheFirst) {
    home.writeBindings({typesT, tapTypesS});
    Agent agent;
    DeviceReader keys(keyboardNode());
    const DeviceReader clone(cloneNode());
    VirtualPad docked(otherPad(), "usb/dock");
    DeviceReader other(waitForNode(docked.shape().name, docked.node()).value_or("/dev/null"));
    PadHand dockedHand(docked);
    dockedHand.waitUntilTaken(other);
    dockedHand.click(2);
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
    hand.pause(betweenGestures);
    hand.tap(3);
    EXPECT_TRUE(keys.waitForKey(KEY_S, 0));
}

// The two ways of granting access to a node: udev sets the mode, and logind sets the access list.
struct Granting {
    std::string name;
    std::function<void(const std::filesystem::path& node)> allow;
    std::function<void(const std::filesystem::path& node)> withdraw;
};

void setMode(const std::filesystem::path& node, mode_t mode) {
    ASSERT_EQ(chmod(node.c_str(), mode), 0);
}

const Granting waysOfGranting[] = {
    {"Mode", [](const auto& node) { setMode(node, 0666); },
     [](const auto& node) {
         setMode(node, 0600);
     }},
    {"AccessList", [](const auto& node) { allow(node, unprivilegedUser); },
     [](const auto& node) {
         withdraw(node);
     }},
};

class SessionAccessTest : public SessionTest, public testing::WithParamInterface<Granting> {
protected:
    void SetUp() override {
        SessionTest::SetUp();
        setMode(pad.node(), 0600);
        setMode(uinput, 0600);
    }
};

TEST_P(SessionAccessTest, UsesAccessGrantedAtRunTimeWithoutARestart) {
    home.writeBindings({typesT});
    home.giveToNobody();
    Agent agent(Process::User::nobody);
    EXPECT_FALSE(isReading(agent));
    EXPECT_THAT(nodesNamed(keyboardName), IsEmpty());
    GetParam().allow(uinput);
    DeviceReader keys(keyboardNode());
    GetParam().allow(pad.node());
    DeviceReader clone(cloneNode());
    hand.waitUntilTaken(clone);
    hand.click(2);
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
    EXPECT_TRUE(agent.waitForLog("twoFingerClick → Shortcut T"));
    GetParam().withdraw(uinput);
}

// An open descriptor stays readable when access is revoked, so the program must check the node
// itself.
TEST_P(SessionAccessTest, ClosesTheTouchpadWhileAccessIsRevoked) {
    home.writeBindings({typesT, tapTypesS});
    home.giveToNobody();
    GetParam().allow(pad.node());
    GetParam().allow(uinput);
    Agent agent(Process::User::nobody);
    DeviceReader keys(keyboardNode());
    for (int turn = 0; turn < 3; ++turn) {
        const std::filesystem::path clone = cloneNode();
        DeviceReader reader(clone);
        hand.waitUntilTaken(reader);
        hand.click(2);
        ASSERT_TRUE(keys.waitForKey(KEY_T, 0)) << "turn " << turn;
        keys.forget();
        reader.forget();
        hand.down(1).press();
        ASSERT_TRUE(reader.waitForKey(BTN_LEFT, 1)) << "turn " << turn;

        GetParam().withdraw(pad.node());
        ASSERT_TRUE(waitForNoNode(clone)) << "turn " << turn;
        EXPECT_TRUE(agent.waitUntilAsleep());
        EXPECT_FALSE(isReading(agent));
        hand.release().up();
        DeviceReader another(pad.node());
        EXPECT_FALSE(another.isGrabbedByAnother());
        hand.click(2);
        EXPECT_TRUE(another.waitForKey(BTN_LEFT, 0));
        hand.pause(betweenGestures);
        hand.tap(3);
        hand.pause(betweenGestures);

        GetParam().allow(pad.node());
    }
    EXPECT_THAT(agent.output(), Not(HasSubstr("threeFingerTap")));
    EXPECT_EQ(countOf(keys, KEY_S, 1), 0);
    GetParam().withdraw(uinput);
}

INSTANTIATE_TEST_SUITE_P(By, SessionAccessTest, testing::ValuesIn(waysOfGranting),
                         [](const auto& granting) { return granting.param.name; });

} // namespace
} // namespace glidemap::test
