// Tests typing on a real X server while keys are held. This server has no keyboard, so another
// client holds the keys. The tests in tests/vm cover keys that a user holds.
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/session_held_modifiers.h"
#include "platform/linux/keyboard/x11_held_modifiers.h"
#include "platform/linux/keyboard/x11_server.h"
#include "x_stage.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using Keys = std::vector<std::string>;
using Changes = std::vector<KeyChange>;

constexpr std::uint32_t lockMask = 2;

const Changes controlT = {
    {KEY_LEFTCTRL, true}, {KEY_T, true}, {KEY_T, false}, {KEY_LEFTCTRL, false}};

class X11ServerTest : public ::testing::Test {
protected:
    void SetUp() override {
        if (!XStage::isInstalled()) {
            GTEST_SKIP() << "Xvfb is not installed";
        }
        stage = std::make_unique<XStage>();
        held = heldModifiersOfThisSession(desktop);
        ASSERT_NE(held, nullptr);
    }

    // Types the changes. Returns how often `held` left the typing to the uinput keyboard.
    int type(const Changes& changes) {
        int plainly = 0;
        held->type(changes, [&] { ++plainly; });
        desktop.call([] {});
        return plainly;
    }

    DesktopThread desktop;
    std::unique_ptr<XStage> stage;
    std::unique_ptr<HeldModifiers> held;
};

TEST_F(X11ServerTest, UinputKeyboardTypesIfNoModifierIsHeld) {
    EXPECT_EQ(type(controlT), 1);
    EXPECT_EQ(stage->takeKeys(), Keys{});
}

TEST_F(X11ServerTest, HeldModifierDoesNotJoinTheShortcut) {
    stage->hold(KEY_LEFTSHIFT, true);
    EXPECT_EQ(stage->takeKeys(), (Keys{"+42 while 0"}));
    EXPECT_EQ(type(controlT), 0);
    EXPECT_EQ(stage->takeKeys(),
              (Keys{"-42 while 1", "+29 while 0", "+20 while 4", "-20 while 4", "-29 while 4"}));
}

TEST_F(X11ServerTest, ShortcutModifierThatIsAlreadyHeldIsPressedOnce) {
    stage->hold(KEY_LEFTCTRL, true);
    stage->takeKeys();
    EXPECT_EQ(type(controlT), 0);
    EXPECT_EQ(stage->takeKeys(),
              (Keys{"-29 while 4", "+29 while 0", "+20 while 4", "-20 while 4", "-29 while 4"}));
}

// The program could not detect the release of a key that only an X client holds.
TEST_F(X11ServerTest, DoesNotRestoreAModifierThatNoKeyboardHolds) {
    stage->hold(KEY_LEFTMETA, true);
    EXPECT_NE(stage->modifiers(), 0U);
    EXPECT_EQ(type(controlT), 0);
    EXPECT_EQ(stage->modifiers(), 0U);
    EXPECT_EQ(type(controlT), 1);
}

TEST_F(X11ServerTest, DoesNotReleaseALockedModifier) {
    stage->hold(KEY_CAPSLOCK, true);
    stage->hold(KEY_CAPSLOCK, false);
    EXPECT_EQ(stage->modifiers(), lockMask);
    EXPECT_EQ(type(controlT), 1);
    EXPECT_EQ(stage->modifiers(), lockMask);
}

TEST_F(X11ServerTest, DoesNotReleaseAHeldLockKey) {
    stage->hold(KEY_CAPSLOCK, true);
    EXPECT_EQ(type(controlT), 1);
}

TEST_F(X11ServerTest, HeldLetterIsNotAModifier) {
    stage->hold(KEY_Q, true);
    EXPECT_EQ(type(controlT), 1);
}

TEST_F(X11ServerTest, LeavesAnIncompleteStrokeToTheUinputKeyboard) {
    stage->hold(KEY_LEFTSHIFT, true);
    EXPECT_EQ(type({{KEY_T, true}}), 1);
}

TEST_F(X11ServerTest, LeavesAnUnknownKeyToTheUinputKeyboard) {
    stage->hold(KEY_LEFTSHIFT, true);
    EXPECT_EQ(type({{KEY_FN, true}, {KEY_FN, false}}), 1);
}

TEST_F(X11ServerTest, UinputKeyboardTypesAfterTheServerExits) {
    stage->hold(KEY_LEFTSHIFT, true);
    stage.reset();
    EXPECT_EQ(type(controlT), 1);
    EXPECT_EQ(type(controlT), 1);
}

TEST(SessionHeldModifiersTest, ExistOnlyInX11AndSwaySessions) {
    DesktopThread desktop;
    unsetenv("DISPLAY");
    setenv("SWAYSOCK", "/nowhere/sway", 1);
    EXPECT_NE(heldModifiersOfThisSession(desktop), nullptr);
    unsetenv("SWAYSOCK");
    EXPECT_EQ(heldModifiersOfThisSession(desktop), nullptr);
    setenv("DISPLAY", ":not-a-display", 1);
    EXPECT_EQ(heldModifiersOfThisSession(desktop), nullptr);
    if (XStage::isInstalled()) {
        XStage stage;
        setenv("WAYLAND_DISPLAY", "wayland-0", 1);
        EXPECT_EQ(heldModifiersOfThisSession(desktop), nullptr);
        unsetenv("WAYLAND_DISPLAY");
        setenv("XDG_SESSION_TYPE", "wayland", 1);
        EXPECT_EQ(heldModifiersOfThisSession(desktop), nullptr);
        setenv("XDG_SESSION_TYPE", "x11", 1);
        EXPECT_NE(heldModifiersOfThisSession(desktop), nullptr);
    }
}

} // namespace
} // namespace glidemap
