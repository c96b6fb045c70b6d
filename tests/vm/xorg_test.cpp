// Tests the program between a touchpad and a real desktop: an X server on the kernel's devices, a
// window manager, and a window with the focus. The desktop must receive the forwarded events
// exactly as it would without the program, and typed shortcuts must arrive unchanged.

#include "agent_session.h"
#include "deadline.h"
#include "device_reader.h"
#include "event_reader.h"
#include "input_devices.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "performer.h"
#include "virtual_pad.h"
#include "x_desktop.h"
#include "x_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr unsigned long shift = 0x20000;
constexpr unsigned long control = 0x40000;

// In seconds, longer than the program's limit between the two taps of a double tap.
constexpr double betweenGestures = 0.6;

// Bits of X's modifier mask.
constexpr std::uint16_t shiftHeld = 1;
constexpr std::uint16_t controlHeld = 4;

constexpr std::uint8_t xCode(int kernelCode) {
    return static_cast<std::uint8_t>(kernelCode + 8);
}

XInput keyDown(int code, std::uint16_t modifiers = 0) {
    return {XInput::Kind::keyDown, xCode(code), modifiers};
}
XInput keyUp(int code, std::uint16_t modifiers = 0) {
    return {XInput::Kind::keyUp, xCode(code), modifiers};
}

PadShape plainKeyboard() {
    PadShape shape;
    shape.name = "Plain Keyboard";
    shape.bus = BUS_USB;
    shape.vendor = 0x6b67;
    shape.product = 0x0003;
    for (int key = KEY_ESC; key <= KEY_COMPOSE; ++key) {
        shape.keys.insert(key);
    }
    return shape;
}

class XorgTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        if (XDesktop::isInstalled()) {
            pad = std::make_unique<VirtualPad>(ordinaryPad());
            desktop = std::make_unique<XDesktop>();
        }
    }

    static void TearDownTestSuite() {
        desktop.reset();
        pad.reset();
    }

    void SetUp() override {
        if (desktop == nullptr) {
            GTEST_SKIP() << "Xorg or openbox is not installed";
        }
        ASSERT_TRUE(desktop->isRunning());
        window = std::make_unique<XWindow>("glidemap-probe");
        ASSERT_TRUE(window->hasFocus());
    }

    // Waits until the server has opened the virtual keyboard.
    void waitForKeyboard() const { waitForServerToTake(waitForNode("Glidemap Keyboard")); }
    // Waits until the server has opened the clone and the driver has grabbed the touchpad, which
    // then sends the server no events.
    void waitForClone() const {
        waitForServerToTake(waitForNode(pad->shape().name, pad->node()));
        EventReader touchpad(pad->node());
        const Deadline deadline;
        do {
            PadHand(*pad).pause(0.05);
            touchpad.read();
            pad->write({{EV_KEY, BTN_TOOL_QUINTTAP, 1}}); // this key has no effect without fingers
            pad->write({{EV_KEY, BTN_TOOL_QUINTTAP, 0}});
        } while (!touchpad.isQuiet() && !deadline.passed());
        EXPECT_FALSE(deadline.passed()) << "the driver did not grab the touchpad";
    }

    void waitForServerToTake(const std::optional<std::filesystem::path>& node) const {
        ASSERT_TRUE(node.has_value());
        ASSERT_TRUE(desktop->waitForDevice(node->string())) << *node;
        window->pointer(); // the server replies once it has configured the device
    }

    // Moves, scrolls and clicks, and ends with a tap, which shows that all earlier events have
    // arrived. Returns the buttons in order. A repeated press and release is listed once, because
    // the number of wheel events varies.
    std::vector<std::string> pointAndTap() {
        window->forget();
        PadHand hand(*pad);
        const auto before = window->pointer();
        hand.pause(betweenGestures).down(1).move(600, 0, 20).up();
        EXPECT_TRUE(window->waitUntil([&] { return window->pointer().first > before.first; }));
        hand.pause(betweenGestures).down(1).move(-600, 0, 20).up();
        hand.pause(betweenGestures).down(2).move(0, 800, 20).up();
        hand.pause(betweenGestures).click(2);
        hand.pause(betweenGestures).click(1);
        hand.pause(betweenGestures).tap(3);
        EXPECT_TRUE(window->waitUntil([&] {
            return !window->inputs().empty() &&
                   describe(window->inputs().back()).starts_with("button up 2");
        }));
        return buttons();
    }

    std::vector<std::string> buttons() const {
        std::vector<std::string> changes;
        for (const XInput& input : window->inputs()) {
            const std::string change = describe(input);
            const bool repeated = changes.size() >= 2 && changes[changes.size() - 2] == change;
            if (repeated) {
                changes.pop_back();
            } else {
                changes.push_back(change);
            }
        }
        return changes;
    }

    static std::unique_ptr<VirtualPad> pad;
    static std::unique_ptr<XDesktop> desktop;
    AgentHome home;
    std::unique_ptr<XWindow> window;
};

std::unique_ptr<VirtualPad> XorgTest::pad;
std::unique_ptr<XDesktop> XorgTest::desktop;

TEST_F(XorgTest, CloneProducesTheSameDesktopInputAsTheTouchpad) {
    const std::vector<std::string> bare = pointAndTap();
    EXPECT_THAT(bare, ElementsAre("button down 5 while 0", "button up 5 while 4096", //
                                  "button down 3 while 0", "button up 3 while 1024", //
                                  "button down 1 while 0", "button up 1 while 256",  //
                                  "button down 2 while 0", "button up 2 while 512"));

    home.writeBindings({bindingJson("fourFingerClick", shortcutJson(17, 0))});
    Agent agent;
    waitForClone();
    ASSERT_TRUE(DeviceReader(pad->node()).isGrabbedByAnother());
    EXPECT_EQ(pointAndTap(), bare);
}

TEST_F(XorgTest, DroppedClickOpensNoMenuAndTypesIntoTheFocusedWindow) {
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, control | shift))});
    Agent agent;
    waitForKeyboard();
    waitForClone();
    PadHand hand(*pad);
    hand.click(2);
    EXPECT_TRUE(agent.waitForLog("twoFingerClick → Shortcut ⌃⇧T @ Glidemap Probe"));
    EXPECT_TRUE(window->waitForInputs(6));
    hand.pause(betweenGestures).click(1);
    EXPECT_TRUE(window->waitForInputs(8));
    constexpr std::uint16_t both = shiftHeld | controlHeld;
    EXPECT_THAT(window->inputs(),
                ElementsAre(keyDown(KEY_LEFTSHIFT), keyDown(KEY_LEFTCTRL, shiftHeld),
                            keyDown(KEY_T, both), keyUp(KEY_T, both), keyUp(KEY_LEFTCTRL, both),
                            keyUp(KEY_LEFTSHIFT, shiftHeld), XInput{XInput::Kind::buttonDown, 1, 0},
                            XInput{XInput::Kind::buttonUp, 1, 256}));
}

TEST_F(XorgTest, ApplicationBindingAppliesWhileTheApplicationIsFrontmost) {
    home.writeBindings(
        {bindingJson("fourFingerTap", shortcutJson(17, 0)),
         bindingJson("fourFingerTap", shortcutJson(7, 0),
                     R"({"kind":"app","bundleID":"glidemap-probe","name":"Probe"})")});
    Agent agent;
    PadHand hand(*pad);
    hand.pause(betweenGestures).tap(4);
    EXPECT_TRUE(agent.waitForLog("fourFingerTap → Shortcut X @ Glidemap Probe"));
    const XWindow other("another-program");
    ASSERT_TRUE(other.hasFocus());
    hand.pause(betweenGestures).tap(4);
    EXPECT_TRUE(agent.waitForLog("fourFingerTap → Shortcut T @ Another Program"));
}

// The user holds Shift with one hand and makes the gesture with the other hand.
TEST_F(XorgTest, HeldModifierDoesNotJoinTheShortcutAndDoesNotGetStuck) {
    home.writeBindings({bindingJson("fourFingerTap", shortcutJson(17, control))});
    VirtualPad keyboard(plainKeyboard(), "virtual/keyboard");
    waitForServerToTake(keyboard.node());
    Agent agent;
    waitForKeyboard();
    keyboard.write({{EV_KEY, KEY_LEFTSHIFT, 1}});
    ASSERT_TRUE(window->waitForInputs(1));
    PadHand(*pad).pause(betweenGestures).tap(4);
    EXPECT_TRUE(agent.waitForLog("fourFingerTap → Shortcut ⌃T"));
    // Waits until Shift, which was released for the shortcut, is down again.
    EXPECT_TRUE(window->waitUntil(
        [&] { return std::ranges::count(window->inputs(), keyDown(KEY_LEFTSHIFT)) == 2; }));
    EXPECT_THAT(window->inputs(), testing::Contains(keyUp(KEY_LEFTCTRL, controlHeld)));
    keyboard.write({{EV_KEY, KEY_A, 1}});
    keyboard.write({{EV_KEY, KEY_A, 0}});
    keyboard.write({{EV_KEY, KEY_LEFTSHIFT, 0}});
    keyboard.write({{EV_KEY, KEY_B, 1}});
    keyboard.write({{EV_KEY, KEY_B, 0}});
    EXPECT_TRUE(window->waitUntil([&] {
        return !window->inputs().empty() && window->inputs().back().detail == xCode(KEY_B) &&
               window->inputs().back().kind == XInput::Kind::keyUp;
    }));
    EXPECT_THAT(window->inputs(),
                testing::IsSupersetOf(
                    {keyDown(KEY_T, controlHeld), keyDown(KEY_A, shiftHeld), keyDown(KEY_B, 0)}));
}

} // namespace
} // namespace glidemap::test
