// Types shortcuts with a real X server while the user holds modifiers on a physical keyboard.
// Checks the events that the focused window receives, and the modifiers that are held afterwards.

#include "ordinary_keyboard.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/session_held_modifiers.h"
#include "platform/linux/keyboard/uinput_key_device.h"
#include "platform/linux/keyboard/uinput_keyboard.h"
#include "process.h"
#include "virtual_pad.h"
#include "x_desktop.h"
#include "x_window.h"

#include <gtest/gtest.h>
#include <linux/input.h>

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {
namespace {

constexpr std::uint64_t control = 0x40000;
constexpr std::uint16_t t = 17;
constexpr int keyCodeOffset = 8;

using Keys = std::vector<std::string>;

Keys operator+(Keys first, const Keys& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// Formats a key event: "+20 while 4" means that key 20 (T) was pressed while Control was held.
std::string written(const XInput& input) {
    const bool down = input.kind == XInput::Kind::keyDown;
    return (down ? "+" : "-") + std::to_string(input.detail - keyCodeOffset) + " while " +
           std::to_string(input.modifiers);
}

// All cases share one X server, because it starts slowly.
class HeldModifiersTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        if (!XDesktop::isInstalled()) {
            return;
        }
        // The keyboard is plugged in before the server starts, because the server opens later
        // devices asynchronously.
        auto device = std::make_unique<UinputKeyDevice>();
        ASSERT_TRUE(device->plugIn());
        users = std::make_unique<VirtualPad>(ordinaryKeyboard(), "usb/keyboard");
        ASSERT_EQ(Process({"/usr/bin/udevadm", "settle"}).waitForEnd(), 0);
        desktop = std::make_unique<XDesktop>();
        window = std::make_unique<XWindow>("glidemap-probe");
        thread = std::make_unique<DesktopThread>();
        keyboard = std::make_unique<UinputKeyboard>(std::move(device),
                                                    heldModifiersOfThisSession(*thread));
    }

    static void TearDownTestSuite() {
        keyboard.reset();
        thread.reset();
        window.reset();
        desktop.reset();
        users.reset();
    }

    void SetUp() override {
        if (desktop == nullptr) {
            GTEST_SKIP() << "no X server is available";
        }
        ASSERT_TRUE(desktop->isRunning());
        ASSERT_TRUE(window->hasFocus());
    }

    static void press(int key) { users->write({{EV_KEY, static_cast<std::uint16_t>(key), 1}}); }
    static void release(int key) { users->write({{EV_KEY, static_cast<std::uint16_t>(key), 0}}); }

    static void post(std::uint16_t keyCode, std::uint64_t flags) {
        const KeyEvent events[] = {{keyCode, true, flags}, {keyCode, false, flags}};
        keyboard->post(events);
    }

    // Types B as the user, and returns all keys up to B. The modifiers in B's events show which
    // modifiers are held.
    static Keys keysUntilUserTypesB() {
        press(KEY_B);
        release(KEY_B);
        const auto typed = [&] {
            const auto& seen = window->inputs();
            return !seen.empty() && seen.back().kind == XInput::Kind::keyUp &&
                   seen.back().detail == KEY_B + keyCodeOffset;
        };
        EXPECT_TRUE(window->waitUntil(typed)) << "the keys did not arrive";
        Keys keys;
        for (const XInput& input : window->inputs()) {
            keys.push_back(written(input));
        }
        window->forget();
        return keys;
    }

    static bool hasSeen(const std::string& key) {
        return std::ranges::any_of(window->inputs(),
                                   [&](const XInput& input) { return written(input) == key; });
    }

    static std::unique_ptr<VirtualPad> users;
    static std::unique_ptr<XDesktop> desktop;
    static std::unique_ptr<XWindow> window;
    static std::unique_ptr<DesktopThread> thread;
    static std::unique_ptr<UinputKeyboard> keyboard;
};

std::unique_ptr<VirtualPad> HeldModifiersTest::users;
std::unique_ptr<XDesktop> HeldModifiersTest::desktop;
std::unique_ptr<XWindow> HeldModifiersTest::window;
std::unique_ptr<DesktopThread> HeldModifiersTest::thread;
std::unique_ptr<UinputKeyboard> HeldModifiersTest::keyboard;

const Keys controlT = {"+29 while 0", "+20 while 4", "-20 while 4", "-29 while 4"};
const Keys plainB = {"+48 while 0", "-48 while 0"};
const Keys controlB = {"+48 while 4", "-48 while 4"};
const Keys shiftB = {"+48 while 1", "-48 while 1"};

TEST_F(HeldModifiersTest, ShortcutArrivesUnchangedWithoutHeldModifiers) {
    post(t, control);
    EXPECT_TRUE(window->waitForInputs(4));
    EXPECT_EQ(keysUntilUserTypesB(), controlT + plainB);
}

TEST_F(HeldModifiersTest, HeldShiftIsReleasedForTheShortcutAndPressedAgain) {
    press(KEY_LEFTSHIFT);
    EXPECT_EQ(keysUntilUserTypesB(), Keys{"+42 while 0"} + shiftB);
    post(t, control);
    EXPECT_TRUE(window->waitForInputs(6));
    EXPECT_EQ(keysUntilUserTypesB(), Keys{"-42 while 1"} + controlT + Keys{"+42 while 0"} + shiftB);
    release(KEY_LEFTSHIFT);
    EXPECT_EQ(keysUntilUserTypesB(), Keys{"-42 while 1"} + plainB);
}

TEST_F(HeldModifiersTest, ControlHeldByTheUserStaysHeldAfterAControlShortcut) {
    press(KEY_LEFTCTRL);
    keysUntilUserTypesB();
    post(t, control);
    EXPECT_TRUE(window->waitForInputs(6));
    EXPECT_EQ(keysUntilUserTypesB(),
              Keys{"-29 while 4"} + controlT + Keys{"+29 while 0"} + controlB);
    release(KEY_LEFTCTRL);
    EXPECT_EQ(keysUntilUserTypesB(), Keys{"-29 while 4"} + plainB);
}

TEST_F(HeldModifiersTest, TwoConsecutiveShortcutsAreCompleteWhileAModifierIsHeld) {
    press(KEY_RIGHTSHIFT);
    keysUntilUserTypesB();
    post(t, control);
    post(t, control);
    EXPECT_TRUE(window->waitForInputs(12));
    const Keys once = Keys{"-54 while 1"} + controlT + Keys{"+54 while 0"};
    EXPECT_EQ(keysUntilUserTypesB(), once + once + shiftB);
    release(KEY_RIGHTSHIFT);
    EXPECT_EQ(keysUntilUserTypesB(), Keys{"-54 while 1"} + plainB);
}

// The server's XTEST keyboard must not keep a key down either, because the next program that uses
// XTEST would inherit the key.
TEST_F(HeldModifiersTest, NoModifierIsStuckAfterItsReleaseDuringAShortcut) {
    for (int round = 0; round < 20; ++round) {
        press(KEY_LEFTSHIFT);
        keysUntilUserTypesB();
        post(t, control);
        release(KEY_LEFTSHIFT); // at any time during the shortcut
        EXPECT_TRUE(window->waitUntil([&] { return hasSeen("-29 while 4"); }));
        const Keys keys = keysUntilUserTypesB();
        ASSERT_GE(keys.size(), 2U);
        EXPECT_EQ(Keys(keys.end() - 2, keys.end()), plainB) << "round " << round;
    }
}

} // namespace
} // namespace glidemap::test
