// A touchpad, a real X server and a window, before anything of ours stands between them: what the
// tests with the whole program compare with.

#include "ordinary_pad.h"
#include "pad_hand.h"
#include "virtual_pad.h"
#include "x_desktop.h"
#include "x_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace glidemap::vm {
namespace {


TEST(Xorg, ATapOfTheTouchpadReachesAWindowAsAClick) {
    VirtualPad pad(ordinaryPad());
    XDesktop desktop;
    ASSERT_TRUE(desktop.isRunning());
    XWindow window("glidemap-probe");
    ASSERT_TRUE(window.hasFocus());
    PadHand hand(pad);
    hand.tap(1);
    EXPECT_TRUE(window.waitForInputs(2));
    hand.pause(0.4).down(2).move(0, 800, 20).up();
    EXPECT_TRUE(window.waitForInputs(4));
    hand.pause(0.4).click(2);
    auto before = window.pointer();
    hand.pause(0.4).down(1).move(800, 0, 20).up();
    EXPECT_TRUE(window.waitUntil([&] { return before != window.pointer(); }));
    for (const XInput& input : window.inputs()) {
        printf("%s\n", describe(input).c_str());
    }
}

} // namespace
} // namespace glidemap::vm
