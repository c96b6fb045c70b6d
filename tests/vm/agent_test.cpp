// Tests the program without its interface on a real kernel: it types on its virtual keyboard, drops
// clicks, and ungrabs the touchpad when it exits or is killed.

#include "agent_session.h"
#include "deadline.h"
#include "device_reader.h"
#include "event_reader.h"
#include "input_devices.h"
#include "kit/in_environment.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "performer.h"
#include "virtual_pad.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

constexpr const char* keyboardName = "Glidemap Keyboard";
constexpr unsigned long shift = 0x20000;
constexpr unsigned long control = 0x40000;
constexpr unsigned long optionAndCommand = 0x180000;

// In seconds, longer than the maximum interval between the taps of a double tap.
constexpr double betweenGestures = 0.6;

std::string contentsOf(const std::filesystem::path& file) {
    std::ifstream stream(file);
    return {std::istreambuf_iterator<char>(stream), {}};
}

PadEvent down(std::uint16_t code) {
    return {EV_KEY, code, 1};
}
PadEvent up(std::uint16_t code) {
    return {EV_KEY, code, 0};
}

class AgentTest : public testing::Test {
protected:
    DeviceReader keyboard() const {
        return DeviceReader(waitForNode(keyboardName).value_or("/dev/null"));
    }

    // Excludes the touchpad's node from the search, because the clone has the same name.
    std::filesystem::path cloneNode() const {
        return waitForNode(pad.shape().name, pad.node()).value_or("/dev/null");
    }

    AgentHome home;
    VirtualPad pad{ordinaryPad()};
    PadHand hand{pad};
};

std::vector<PadEvent> withoutMarker(const std::vector<PadEvent>& events) {
    std::vector<PadEvent> result;
    for (std::size_t index = 0; index < events.size(); ++index) {
        if (events[index].type == EV_KEY && events[index].code == BTN_MIDDLE) {
            ++index; // skips the following SYN_REPORT
        } else {
            result.push_back(events[index]);
        }
    }
    return result;
}

// ── typing ──

TEST_F(AgentTest, DefaultBindingsTypeTheirShortcuts) {
    Agent agent;
    DeviceReader keys = keyboard();
    performOn(pad, GestureType::fixAndTapRight);
    EXPECT_TRUE(keys.waitForKey(KEY_RIGHT, 0));
    EXPECT_TRUE(agent.waitForLog("fixAndTapRight → Shortcut ⌥⌘→"));
    hand.pause(betweenGestures);
    performOn(pad, GestureType::fixAndTapLeft);
    EXPECT_TRUE(agent.waitForLog("fixAndTapLeft → Shortcut ⌥⌘←"));
    hand.pause(betweenGestures);
    performOn(pad, GestureType::drawCircleClockwise);
    EXPECT_TRUE(agent.waitForLog("→ Lock Screen"));
    EXPECT_TRUE(keys.waitForKey(KEY_Q, 0)) << "this system has no screen locker";
    EXPECT_TRUE(keys.waitUntil([&] { return keys.keys().size() >= 18; }));
    EXPECT_THAT(keys.keys(), ElementsAre(down(KEY_LEFTALT), down(KEY_LEFTMETA), down(KEY_RIGHT),
                                         up(KEY_RIGHT), up(KEY_LEFTMETA), up(KEY_LEFTALT), //
                                         down(KEY_LEFTALT), down(KEY_LEFTMETA), down(KEY_LEFT),
                                         up(KEY_LEFT), up(KEY_LEFTMETA), up(KEY_LEFTALT), //
                                         down(KEY_LEFTCTRL), down(KEY_LEFTMETA), down(KEY_Q),
                                         up(KEY_Q), up(KEY_LEFTMETA), up(KEY_LEFTCTRL)));
    EXPECT_THAT(contentsOf(home.bindingsFile()), HasSubstr("\"drawCircle\""));
}

TEST_F(AgentTest, RunsEveryKindOfAction) {
    const std::filesystem::path launched = home.folder / "launched";
    std::ofstream(home.applications() / "org.example.Probe.desktop")
        << "[Desktop Entry]\nType=Application\nName=Probe\nExec=/usr/bin/touch "
        << launched.string() << "\n";
    home.writeBindings(
        {bindingJson("twoFingerTap", shortcutJson(17, control | shift)),
         bindingJson("threeFingerTap", R"({"kind":"lockScreen"})"),
         bindingJson("threeFingerSwipeUp", R"({"kind":"missionControl"})"),
         bindingJson("fourFingerTap",
                     R"({"kind":"launchApp","bundleID":"org.example.Probe","name":"Probe"})")});
    Agent agent;
    DeviceReader keys = keyboard();
    hand.tap(2);
    EXPECT_TRUE(agent.waitForLog("twoFingerTap → Shortcut ⌃⇧T"));
    hand.pause(betweenGestures);
    hand.tap(3);
    EXPECT_TRUE(agent.waitForLog("threeFingerTap → Lock Screen"));
    hand.pause(betweenGestures);
    performOn(pad, GestureType::threeFingerSwipeUp);
    EXPECT_TRUE(agent.waitForLog("threeFingerSwipeUp → Mission Control"));
    hand.pause(betweenGestures);
    hand.tap(4);
    EXPECT_TRUE(agent.waitForLog("fourFingerTap → Open Probe"));
    EXPECT_TRUE(waitForFile(launched));
    EXPECT_TRUE(keys.waitForKey(KEY_Q, 0));
    EXPECT_TRUE(keys.waitUntil([&] { return keys.keys().size() >= 12; }));
    EXPECT_THAT(keys.keys(), ElementsAre(down(KEY_LEFTSHIFT), down(KEY_LEFTCTRL), down(KEY_T),
                                         up(KEY_T), up(KEY_LEFTCTRL), up(KEY_LEFTSHIFT), //
                                         down(KEY_LEFTCTRL), down(KEY_LEFTMETA), down(KEY_Q),
                                         up(KEY_Q), up(KEY_LEFTMETA), up(KEY_LEFTCTRL)));
}

TEST_F(AgentTest, LogsAnUnboundGestureAndTypesNothing) {
    home.writeBindings({bindingJson("twoFingerTap", shortcutJson(17, 0))});
    Agent agent;
    DeviceReader keys = keyboard();
    hand.tap(3);
    EXPECT_TRUE(agent.waitForLog("threeFingerTap → (no matching binding)"));
    hand.pause(betweenGestures);
    hand.tap(2);
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
    EXPECT_THAT(keys.keys(), ElementsAre(down(KEY_T), up(KEY_T)));
}

TEST_F(AgentTest, DoesNothingWhileTheMasterSwitchIsOff) {
    home.writeBindings({bindingJson("twoFingerTap", shortcutJson(17, 0)),
                        bindingJson("twoFingerClick", shortcutJson(17, 0))});
    home.writeDefaults("masterEnabled=false\n");
    Agent agent;
    DeviceReader keys = keyboard();
    DeviceReader source(pad.node());
    hand.tap(2).pause(betweenGestures).click(2);
    EXPECT_TRUE(source.waitForKey(BTN_LEFT, 0)) << "the click must pass";
    EXPECT_THAT(nodesNamed(pad.shape().name), ElementsAre(pad.node()))
        << "the touchpad has no clone";
    agent.send(SIGTERM);
    EXPECT_EQ(agent.waitForEnd(), 0);
    keys.readAll();
    EXPECT_THAT(keys.events(), IsEmpty());
    EXPECT_THAT(agent.output(), Not(HasSubstr("Finger")));
}

// ── dropped clicks ──

TEST_F(AgentTest, DropsATwoFingerClickAndItsReleaseButNotAOneFingerClick) {
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    Agent agent;
    DeviceReader keys = keyboard();
    DeviceReader clone(cloneNode());
    hand.waitUntilTaken(clone);
    hand.click(2);
    EXPECT_TRUE(agent.waitForLog("twoFingerClick → Shortcut T"));
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
    hand.pause(betweenGestures).click(1).pause(betweenGestures).click(3);
    EXPECT_TRUE(
        clone.waitUntil([&] { return std::ranges::count(clone.events(), up(BTN_TOUCH)) == 3; }));
    std::vector<PadEvent> buttons = clone.keys();
    std::erase_if(buttons, [](const PadEvent& event) { return event.code != BTN_LEFT; });
    EXPECT_THAT(buttons, ElementsAre(down(BTN_LEFT), up(BTN_LEFT),  // the click with one finger
                                     down(BTN_LEFT), up(BTN_LEFT))) // the click with three fingers
        << "without a binding a click passes";
    EXPECT_THAT(keys.keys(), ElementsAre(down(KEY_T), up(KEY_T)));
}

// Plays the same frames twice: the test reads them from the ungrabbed touchpad first, and then from
// the clone.
TEST_F(AgentTest, CloneForwardsEveryFingerEvent) {
    const auto play = [&] {
        PadHand other(pad); // starts with the same tracking ids each time
        other.down(1).move(900, 300, 25).up().pause(0.05);
        other.down(2).move(0, 500, 25).up().pause(0.05);
        other.click(1).down(4).move(300, 300, 5).up();
    };
    DeviceReader source(pad.node());
    play();
    ASSERT_TRUE(
        source.waitUntil([&] { return std::ranges::count(source.events(), up(BTN_TOUCH)) == 4; }));
    const std::vector<PadEvent> bare = source.events();

    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    Agent agent;
    DeviceReader clone(cloneNode());
    hand.waitUntilTaken(clone);
    ASSERT_TRUE(source.isGrabbedByAnother());
    source.readAll();
    source.forget();
    play();
    EXPECT_TRUE(
        clone.waitUntil([&] { return withoutMarker(clone.events()).size() >= bare.size(); }));
    source.readAll();
    EXPECT_THAT(source.events(), IsEmpty()) << "other programs receive no events of the touchpad";
    EXPECT_THAT(withoutMarker(clone.events()), ElementsAreArray(bare));
}

// ── access granted later ──

// Replaces pkexec with a script that exits when the test calls answer().
class PretendedPrompt {
public:
    explicit PretendedPrompt(const std::filesystem::path& folder) : answers(folder / "answers") {
        EXPECT_EQ(mkfifo(answers.c_str(), 0666), 0);
        answering = open(answers.c_str(), O_RDWR | O_CLOEXEC);
        EXPECT_NE(answering, -1);
        std::filesystem::rename(program, hidden);
        std::ofstream(program) << "#!/bin/sh\nread answer <" << answers.string() << "\n";
        EXPECT_EQ(chmod(program, 0755), 0);
    }
    PretendedPrompt(const PretendedPrompt&) = delete;
    PretendedPrompt& operator=(const PretendedPrompt&) = delete;
    ~PretendedPrompt() {
        std::filesystem::rename(hidden, program);
        close(answering);
    }

    void answer() const { EXPECT_EQ(write(answering, "yes\n", 4), 4); }

private:
    static constexpr const char* program = "/usr/bin/pkexec";
    static constexpr const char* hidden = "/usr/bin/pkexec.hidden";

    const std::filesystem::path answers;
    int answering = -1;
};

TEST_F(AgentTest, TypesAndDropsClicksWithoutARestartAfterAccessIsGranted) {
    constexpr const char* uinput = "/dev/uinput";
    if (!std::filesystem::exists("/usr/bin/pkexec")) {
        GTEST_SKIP() << "pkexec is not installed";
    }
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    const PretendedPrompt prompt(home.folder);
    home.giveToNobody();
    ASSERT_EQ(chmod(pad.node().c_str(), 0666), 0);
    ASSERT_EQ(chmod(uinput, 0600), 0);
    Agent agent(Process::User::nobody, Agent::Asks::ifNeeded);
    EXPECT_THAT(nodesNamed(keyboardName), IsEmpty());
    EXPECT_THAT(nodesNamed(pad.shape().name), ElementsAre(pad.node()));

    ASSERT_EQ(chmod(uinput, 0666), 0);
    prompt.answer();
    DeviceReader keys = keyboard();
    DeviceReader clone(cloneNode());
    hand.waitUntilTaken(clone);
    hand.click(2);
    EXPECT_TRUE(agent.waitForLog("twoFingerClick → Shortcut T"));
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
    EXPECT_TRUE(clone.waitForKey(BTN_TOUCH, 0));
    EXPECT_EQ(std::ranges::count(clone.events(), down(BTN_LEFT)), 0);
    EXPECT_EQ(chmod(uinput, 0600), 0);
}

// ── ungrabbing the touchpad ──

TEST_F(AgentTest, KillingTheProgramDuringATouchUngrabsTheTouchpad) {
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    Agent agent;
    const std::filesystem::path clone = cloneNode();
    DeviceReader reader(clone);
    hand.waitUntilTaken(reader);
    DeviceReader source(pad.node());
    hand.down(2).move(100, 100, 3).press();
    source.readAll();
    EXPECT_THAT(source.events(), IsEmpty());
    agent.send(SIGKILL);
    EXPECT_EQ(agent.waitForEnd(), 128 + SIGKILL);
    EXPECT_TRUE(waitForNoNode(clone));
    hand.release().move(100, 100, 3).up();
    EXPECT_TRUE(source.waitForKey(BTN_TOUCH, 0));
    EXPECT_FALSE(source.isGrabbedByAnother());
}

class TerminatedAgentTest : public AgentTest, public testing::WithParamInterface<int> {};

TEST_P(TerminatedAgentTest, ExitsSuccessfullyAndUngrabsTheTouchpad) {
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    Agent agent;
    const std::filesystem::path clone = cloneNode();
    const std::filesystem::path keyboardNode = waitForNode(keyboardName).value_or("/dev/null");
    DeviceReader reader(clone);
    hand.waitUntilTaken(reader);
    DeviceReader source(pad.node());
    hand.down(2);
    agent.send(GetParam());
    EXPECT_EQ(agent.waitForEnd(), 0) << agent.errors();
    EXPECT_TRUE(waitForNoNode(clone));
    EXPECT_TRUE(waitForNoNode(keyboardNode));
    hand.up();
    EXPECT_TRUE(source.waitForKey(BTN_TOUCH, 0));
}

INSTANTIATE_TEST_SUITE_P(Signals, TerminatedAgentTest, testing::Values(SIGTERM, SIGINT));

TEST_F(AgentTest, FiltersAReconnectedTouchpadAgain) {
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    Agent agent;
    DeviceReader keys = keyboard();
    const std::filesystem::path clone = cloneNode();
    pad.unplug();
    EXPECT_TRUE(waitForNoNode(clone));
    pad.plugIn();
    DeviceReader again(cloneNode());
    hand.waitUntilTaken(again);
    hand.click(2);
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
    again.readAll();
    EXPECT_EQ(std::ranges::count(again.events(), down(BTN_LEFT)), 0);
}

// ── no reader, a grab by another program, a full disk ──

TEST_F(AgentTest, LogsThatNoProgramReadsTheClone) {
    const InEnvironment log("GLIDEMAP_LOG", "1");
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    Agent agent;
    const DeviceReader keys = keyboard();
    const std::string reason = "not grabbed, no program has opened the touchpad's clone: ";
    EXPECT_TRUE(agent.waitForReason(reason + pad.shape().name));
    EXPECT_TRUE(waitForCloneCount(0));
    DeviceReader others(pad.node());
    EXPECT_FALSE(others.isGrabbedByAnother());
    hand.click(2);
    EXPECT_TRUE(others.waitForKey(BTN_LEFT, 1));
    EXPECT_TRUE(others.waitForKey(BTN_LEFT, 0));
    EXPECT_TRUE(agent.waitUntilAsleep());
    EXPECT_THAT(agent.errors(), Not(HasSubstr("grabbed " + pad.shape().name)));
    EXPECT_THAT(agent.output(), Not(HasSubstr("twoFingerClick")));
}

TEST_F(AgentTest, LogsThatAnotherProgramHasGrabbedTheTouchpad) {
    const InEnvironment log("GLIDEMAP_LOG", "1");
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    const EventReader other(pad.node());
    ASSERT_TRUE(other.grab());
    Agent agent;
    DeviceReader clone(cloneNode());
    const std::string reason = "not grabbed, another program has grabbed the touchpad: ";
    EXPECT_TRUE(agent.waitForReason(reason + pad.shape().name));
}

TEST_F(AgentTest, DefaultBindingsWorkOnAFullDisk) {
    const std::filesystem::path folder = home.bindingsFile().parent_path();
    std::filesystem::create_directories(folder);
    ASSERT_EQ(mount("none", folder.c_str(), "tmpfs", 0, "size=4k"), 0);
    std::ofstream(folder / "filler") << std::string(4096, 'x') << std::flush;
    {
        Agent agent;
        DeviceReader keys = keyboard();
        performOn(pad, GestureType::fixAndTapRight);
        EXPECT_TRUE(keys.waitForKey(KEY_RIGHT, 0));
    }
    EXPECT_FALSE(std::filesystem::exists(home.bindingsFile()));
    umount(folder.c_str());
}

} // namespace
} // namespace glidemap::test
