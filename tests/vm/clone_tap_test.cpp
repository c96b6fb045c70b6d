// Checks how libinput interprets the touches of a dropped click. With tapping on, the touches alone
// would be a tap, and a two-finger tap opens a menu.
//
//   fingers ─▶ pad ─▶ driver, drops the click ─▶ clone ─▶ libinput ─▶ buttons, scrolling, motion

#include "forwarded_pad.h"
#include "input_devices.h"
#include "pad_hand.h"
#include "process.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/input.h>

#include <filesystem>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using Texts = std::vector<std::string>;

// The interval between two reports of a touchpad, in seconds.
constexpr double aMoment = 0.01;

// In seconds, longer than libinput waits for a tap to become a drag.
constexpr double betweenGestures = 0.5;

std::string textFrom(const std::string& line, const char* begin) {
    return line.substr(line.find(begin));
}

class CloneTapTest : public testing::Test {
protected:
    void SetUp() override {
        if (!std::filesystem::exists("/usr/bin/libinput")) {
            GTEST_SKIP() << "libinput-tools is not installed";
        }
        forwarded.switchOn();
        const auto clone = waitForClone();
        libinput = std::make_unique<Process>(
            std::vector<std::string>{"/usr/bin/stdbuf", "-oL", "/usr/bin/libinput", "debug-events",
                                     "--enable-tap", "--device", clone.string()});
        ASSERT_TRUE(libinput->waitForOutput("DEVICE_ADDED"));
        ASSERT_TRUE(libinput->waitUntilReading(clone));
    }

    // Returns the buttons that libinput reported, in order. Makes a swipe first and waits for it,
    // because it arrives after all earlier events.
    Texts buttons() {
        hand.pause(betweenGestures).down(3).move(800, 0, 20).up();
        if (!libinput->waitForOutput("GESTURE_SWIPE_BEGIN")) {
            return {"no swipe"};
        }
        return linesWith("POINTER_BUTTON", "BTN_");
    }

    // Returns the lines that contain the text, each without the part before `begin`.
    Texts linesWith(const char* text, const char* begin) const {
        Texts lines;
        std::istringstream stream(libinput->output());
        for (std::string line; std::getline(stream, line);) {
            if (line.find(text) != std::string::npos) {
                lines.push_back(textFrom(line, begin));
            }
        }
        return lines;
    }

    Texts scrolling() const { return linesWith("POINTER_SCROLL_FINGER", "vert"); }

    ForwardedPad forwarded;
    PadHand hand{forwarded.pad};
    std::unique_ptr<Process> libinput;
};

PadShape padWithPalms() {
    PadShape shape = ordinaryPad();
    shape.axes[ABS_MT_TOOL_TYPE] = {0, MT_TOOL_PALM, 0, 0, 0};
    return shape;
}

TEST_F(CloneTapTest, DroppedShortClickIsNotATap) {
    for (const int fingers : {2, 3, 4}) {
        hand.down(fingers).pause(aMoment).press().pause(aMoment).release().pause(aMoment).up();
        hand.pause(betweenGestures);
    }
    EXPECT_THAT(buttons(), IsEmpty());
    EXPECT_THAT(libinput->errors(), Not(HasSubstr("jump")));
}

TEST_F(CloneTapTest, DroppedClickIsNotATapIfFingersLandAndLiftWithTheButton) {
    auto& pad = forwarded.pad;
    const PadEvent touch{EV_KEY, BTN_TOUCH, 1};
    const PadEvent noTouch{EV_KEY, BTN_TOUCH, 0};
    const PadEvent two{EV_KEY, BTN_TOOL_DOUBLETAP, 1};
    const PadEvent noTwo{EV_KEY, BTN_TOOL_DOUBLETAP, 0};
    pad.write(together(
        {fingerDown(0, 7, 1000, 500), fingerDown(1, 8, 1600, 500), {touch, two, leftDown}}));
    hand.pause(aMoment);
    pad.write(together({fingerUp(0), fingerUp(1), {noTouch, noTwo, leftUp}}));
    EXPECT_THAT(buttons(), IsEmpty());
}

TEST_F(CloneTapTest, AdditionalFingerDuringADroppedClickDoesNotTap) {
    auto& pad = forwarded.pad;
    hand.down(2).pause(aMoment).press().pause(aMoment);
    pad.write(together({fingerDown(2, 9, 3000, 500),
                        {{EV_KEY, BTN_TOOL_DOUBLETAP, 0}, {EV_KEY, BTN_TOOL_TRIPLETAP, 1}}}));
    hand.pause(aMoment);
    pad.write(together(
        {fingerUp(2), {{EV_KEY, BTN_TOOL_TRIPLETAP, 0}, {EV_KEY, BTN_TOOL_DOUBLETAP, 1}}}));
    hand.pause(aMoment).release().pause(aMoment).up();
    EXPECT_THAT(buttons(), IsEmpty());
}

TEST_F(CloneTapTest, ForwardsClicksAsClicksAndTapsAsTaps) {
    hand.down(1).pause(aMoment).press().pause(aMoment).release().pause(aMoment).up();
    hand.pause(betweenGestures).tap(2);
    EXPECT_THAT(buttons(), ElementsAre(HasSubstr("BTN_LEFT (272) pressed"),
                                       HasSubstr("BTN_LEFT (272) released"),
                                       HasSubstr("BTN_RIGHT (273) pressed"),
                                       HasSubstr("BTN_RIGHT (273) released")));
}

TEST_F(CloneTapTest, TapImmediatelyAfterADroppedClickIsATap) {
    hand.down(2).pause(aMoment).press().pause(aMoment).release().pause(aMoment).up();
    hand.pause(aMoment).tap(2);
    EXPECT_THAT(buttons(), ElementsAre(HasSubstr("BTN_RIGHT (273) pressed"),
                                       HasSubstr("BTN_RIGHT (273) released")));
}

// The fingers move down while the button is held, and to the right afterwards.
TEST_F(CloneTapTest, FingersThatRemainAfterADroppedClickScrollAgain) {
    hand.down(2).pause(aMoment).press().pause(aMoment).move(0, 600, 20);
    hand.release().pause(aMoment).move(800, 0, 20).up();
    EXPECT_THAT(buttons(), IsEmpty());
    EXPECT_THAT(scrolling(), testing::Contains(Not(HasSubstr("horiz 0.00"))));
    EXPECT_THAT(scrolling(), testing::Each(HasSubstr("vert 0.00")));
}

TEST_F(CloneTapTest, FingerThatRemainsAfterADroppedClickMovesThePointerAgain) {
    hand.down(2).pause(aMoment).press().pause(aMoment).release().pause(aMoment);
    forwarded.pad.write(
        together({fingerUp(1), {{EV_KEY, BTN_TOOL_DOUBLETAP, 0}, {EV_KEY, BTN_TOOL_FINGER, 1}}}));
    hand.pause(betweenGestures);
    for (std::int32_t step = 1; step <= 40; ++step) {
        forwarded.pad.write(fingerMove(0, 1700 + 20 * step, 1000));
        hand.pause(aMoment);
    }
    forwarded.pad.write(
        together({fingerUp(0), {{EV_KEY, BTN_TOUCH, 0}, {EV_KEY, BTN_TOOL_FINGER, 0}}}));
    EXPECT_THAT(buttons(), IsEmpty());
    EXPECT_THAT(linesWith("POINTER_MOTION", "POINTER_MOTION"), Not(IsEmpty()));
}

TEST_F(CloneTapTest, UngrabDuringADroppedClickIsNotATap) {
    hand.down(2).pause(aMoment).press().pause(aMoment);
    forwarded.session.settle(forwarded.pad);
    forwarded.session.stop();
    ASSERT_TRUE(libinput->waitForOutput("DEVICE_REMOVED"));
    EXPECT_THAT(linesWith("POINTER_BUTTON", "BTN_"), IsEmpty());
}

TEST(ClonePalmTest, CloneForwardsTheTouchpadsPalmsAroundADroppedPress) {
    ForwardedPad forwarded(padWithPalms());
    forwarded.switchOn();
    auto& pad = forwarded.pad;
    constexpr PadEvent palm{EV_ABS, ABS_MT_TOOL_TYPE, MT_TOOL_PALM};
    constexpr PadEvent finger{EV_ABS, ABS_MT_TOOL_TYPE, MT_TOOL_FINGER};
    pad.write(together({fingerDown(0, 7, 1000, 500),
                        fingerDown(1, 8, 2000, 600),
                        fingerDown(2, 9, 3000, 700),
                        {palm}}));
    pad.write({leftDown});
    pad.write({leftUp});
    EXPECT_EQ(framesWithoutMarker(forwarded.readClone()),
              (std::vector<EventFrame>{
                  together({{{EV_ABS, ABS_MT_TRACKING_ID, 7},
                             {EV_ABS, ABS_MT_POSITION_X, 1000},
                             {EV_ABS, ABS_MT_POSITION_Y, 500}},
                            fingerDown(1, 8, 2000, 600),
                            fingerDown(2, 9, 3000, 700),
                            {palm}}),
                  {{EV_ABS, ABS_MT_SLOT, 0}, palm, {EV_ABS, ABS_MT_SLOT, 1}, palm},
                  {{EV_ABS, ABS_MT_SLOT, 0}, finger, {EV_ABS, ABS_MT_SLOT, 1}, finger}}));
    EXPECT_THAT(forwarded.clone->slotValues(ABS_MT_TOOL_TYPE),
                ElementsAre(0, 0, MT_TOOL_PALM, 0, 0));
}

} // namespace
} // namespace glidemap::test
