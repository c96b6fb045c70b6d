#include "drivers/contact/missing_fingers.h"
#include "pad_events.h"

#include <gtest/gtest.h>

namespace glidemap::test {
namespace {

void check(const std::vector<StoryRow>& rows) {
    for (const StoryRow& row : rows) {
        SCOPED_TRACE(row.name);
        Pad pad(row.description);
        row.story(pad);
        EXPECT_EQ(pad.reports, row.expected);
    }
}

// Puts two fingers in the slots, at half the touchpad's height, and presses the key that reports
// the touchpad's finger count.
void twoFingersAnd(Pad& pad, std::uint16_t toolKey) {
    pad.slot(0).down(1).place(20, 50).slot(1).down(2).place(80, 50).key(toolKey, true).sync();
}

void count(Pad& pad, std::uint16_t before, std::uint16_t after) {
    pad.key(before, false).key(after, true);
}

constexpr const char* threeFingers = "1.00 1:make(0.20,0.50) 2:make(0.80,0.50) 3:make(0.24,0.50)";

TEST(MissingFingers, AddsStandInsIfTheTouchpadCountsMoreFingersThanSlots) {
    check({
        {"as many fingers as slots",
         padWithSlots(2),
         [](Pad& pad) { twoFingersAnd(pad, BTN_TOOL_DOUBLETAP); },
         {"1.00 1:make(0.20,0.50) 2:make(0.80,0.50)"}},
        {"one more",
         padWithSlots(2),
         [](Pad& pad) { twoFingersAnd(pad, BTN_TOOL_TRIPLETAP); },
         {threeFingers}},
        {"two more: one stand-in beside each contact",
         padWithSlots(2),
         [](Pad& pad) { twoFingersAnd(pad, BTN_TOOL_QUADTAP); },
         {"1.00 1:make(0.20,0.50) 2:make(0.80,0.50) 3:make(0.24,0.50) 4:make(0.76,0.50)"}},
        {"three more: no two stand-ins coincide",
         padWithSlots(2),
         [](Pad& pad) { twoFingersAnd(pad, BTN_TOOL_QUINTTAP); },
         {"1.00 1:make(0.20,0.50) 2:make(0.80,0.50) 3:make(0.24,0.50) 4:make(0.76,0.50)"
          " 5:make(0.28,0.50)"}},
        {"a pad with enough slots: its slots count",
         padWithSlots(3),
         [](Pad& pad) { twoFingersAnd(pad, BTN_TOOL_TRIPLETAP); },
         {"1.00 1:make(0.20,0.50) 2:make(0.80,0.50)"}},
        {"a pad that reports corners: its count counts",
         semiMultitouchPad(),
         [](Pad& pad) { pad.down(1).place(20, 50).key(BTN_TOOL_DOUBLETAP, true).sync(); },
         {"1.00 1:make(0.20,0.50) 2:make(0.24,0.50)"}},
        {"no contact, no stand-ins",
         padWithSlots(2),
         [](Pad& pad) { pad.key(BTN_TOOL_TRIPLETAP, true).sync(); },
         {}},
        {"a contact that hovers at a distance gets no stand-in",
         semiMultitouchPad(),
         [](Pad& pad) {
             pad.down(1).place(20, 50).absolute(ABS_MT_DISTANCE, 2);
             pad.key(BTN_TOOL_DOUBLETAP, true).sync();
         },
         {"1.00 1:hover(0.20,0.50)"}},
        {"a contact in the exact middle: the stand-in is at its right",
         padWithSlots(1),
         [](Pad& pad) { pad.down(1).place(50, 50).key(BTN_TOOL_DOUBLETAP, true).sync(); },
         {"1.00 1:make(0.50,0.50) 2:make(0.54,0.50)"}},
        {"a stand-in takes a free place",
         padWithSlots(2),
         [](Pad& pad) {
             pad.slot(0).down(1).place(20, 50).slot(1).down(2).place(24, 50);
             pad.key(BTN_TOOL_TRIPLETAP, true).sync();
         },
         {"1.00 1:make(0.20,0.50) 2:make(0.24,0.50) 3:make(0.28,0.50)"}},
    });
}

TEST(MissingFingers, StandInsMoveExactlyWithTheirAnchor) {
    check({
        {"towards the far side and beyond the edge",
         padWithSlots(1),
         [](Pad& pad) {
             pad.down(1).place(20, 50).key(BTN_TOOL_DOUBLETAP, true).sync();
             pad.place(60, 40).sync();
             pad.place(100, 40).sync();
         },
         {"1.00 1:make(0.20,0.50) 2:make(0.24,0.50)", "1.01 1:touch(0.60,0.60) 2:touch(0.64,0.60)",
          "1.02 1:touch(1.00,0.60) 2:touch(1.04,0.60)"}},
        {"stand-ins touch while their anchor touches",
         padWithSlots(1),
         [](Pad& pad) {
             pad.down(1).place(20, 50).key(BTN_TOOL_DOUBLETAP, true).sync();
             pad.absolute(ABS_MT_TOOL_TYPE, MT_TOOL_PALM).sync();
             pad.absolute(ABS_MT_TOOL_TYPE, MT_TOOL_FINGER).sync();
         },
         {"1.00 1:make(0.20,0.50) 2:make(0.24,0.50)", "1.01 1:hover(0.20,0.50) 2:hover(0.24,0.50)",
          "1.02 1:make(0.20,0.50) 2:make(0.24,0.50)"}},
        {"a finger is the anchor rather than a palm",
         padWithSlots(2),
         [](Pad& pad) {
             pad.slot(0).absolute(ABS_MT_TOOL_TYPE, MT_TOOL_PALM);
             twoFingersAnd(pad, BTN_TOOL_TRIPLETAP);
         },
         {"1.00 1:hover(0.20,0.50) 2:make(0.80,0.50) 3:make(0.76,0.50)"}},
    });
}

TEST(MissingFingers, StandInsHaveMillimetrePositionsAndTheirAnchorsVelocity) {
    Pad pad(padWithSlots(1));
    pad.down(1).place(20, 50).key(BTN_TOOL_DOUBLETAP, true).sync();
    pad.place(40, 50).sync();
    const MTTouch anchor = pad.lastRecords.at(0);
    const MTTouch standIn = pad.lastRecords.at(1);
    EXPECT_NEAR(standIn.absolute.pos.x - anchor.absolute.pos.x, 2, 1e-4); // 4 % of 50 mm
    EXPECT_FLOAT_EQ(standIn.normalized.vel.x, anchor.normalized.vel.x);
    EXPECT_EQ(standIn.fingerID, 1); // the first number that is not a slot number
}

TEST(MissingFingers, StandInsLeaveWhenTheFingerCountDropsOrAllContactsLeave) {
    check({
        {"the count drops",
         padWithSlots(2),
         [](Pad& pad) {
             twoFingersAnd(pad, BTN_TOOL_QUADTAP);
             count(pad, BTN_TOOL_QUADTAP, BTN_TOOL_TRIPLETAP);
             pad.sync();
             count(pad, BTN_TOOL_TRIPLETAP, BTN_TOOL_DOUBLETAP);
             pad.sync();
         },
         {"1.00 1:make(0.20,0.50) 2:make(0.80,0.50) 3:make(0.24,0.50) 4:make(0.76,0.50)",
          "1.01 4:left(0.76,0.50) 1:touch(0.20,0.50) 2:touch(0.80,0.50) 3:touch(0.24,0.50)",
          "1.02 3:left(0.24,0.50) 1:touch(0.20,0.50) 2:touch(0.80,0.50)"}},
        {"all fingers lift at once",
         padWithSlots(2),
         [](Pad& pad) {
             twoFingersAnd(pad, BTN_TOOL_TRIPLETAP);
             pad.slot(0).up().slot(1).up().key(BTN_TOOL_TRIPLETAP, false).sync();
         },
         {threeFingers, "1.01 1:left(0.20,0.50) 2:left(0.80,0.50) 3:left(0.24,0.50)"}},
        {"the contacts lift and the count stays",
         padWithSlots(2),
         [](Pad& pad) {
             twoFingersAnd(pad, BTN_TOOL_TRIPLETAP);
             pad.slot(0).up().slot(1).up().sync().sync();
         },
         {threeFingers, "1.01 1:left(0.20,0.50) 2:left(0.80,0.50) 3:left(0.24,0.50)"}},
        {"the pad is unplugged",
         padWithSlots(2),
         [](Pad& pad) {
             twoFingersAnd(pad, BTN_TOOL_TRIPLETAP);
             pad.release().sync();
         },
         {threeFingers, "1.01"}},
    });
}

TEST(MissingFingers, StandInsKeepTheirPositionWhenTheirAnchorLeaves) {
    check({
        {"stand-ins follow the other contact",
         padWithSlots(2),
         [](Pad& pad) {
             twoFingersAnd(pad, BTN_TOOL_QUADTAP);
             count(pad, BTN_TOOL_QUADTAP, BTN_TOOL_TRIPLETAP);
             pad.slot(0).up().sync();
             pad.slot(1).place(70, 40).sync();
         },
         {"1.00 1:make(0.20,0.50) 2:make(0.80,0.50) 3:make(0.24,0.50) 4:make(0.76,0.50)",
          "1.01 1:left(0.20,0.50) 2:touch(0.80,0.50) 3:touch(0.24,0.50) 4:touch(0.76,0.50)",
          "1.02 2:touch(0.70,0.60) 3:touch(0.14,0.60) 4:touch(0.66,0.60)"}},
        {"stand-ins leave with the last contact",
         padWithSlots(1),
         [](Pad& pad) {
             pad.down(1).place(20, 50).key(BTN_TOOL_DOUBLETAP, true).sync();
             pad.up().sync();
             pad.down(2).place(90, 50).sync();
         },
         {"1.00 1:make(0.20,0.50) 2:make(0.24,0.50)", "1.01 1:left(0.20,0.50) 2:left(0.24,0.50)",
          "1.02 3:make(0.90,0.50) 4:make(0.86,0.50)"}},
    });
}

// The touchpad may take a slot from one finger and give it to another. A finger that loses its slot
// has not been lifted, and a finger that gets a slot has not just landed.
TEST(MissingFingers, FingersKeepTheirIdentifiersWhenTheTouchpadReassignsSlots) {
    check({
        {"the pad removes a slot, then assigns it again",
         padWithSlots(2),
         [](Pad& pad) {
             twoFingersAnd(pad, BTN_TOOL_TRIPLETAP);
             pad.slot(0).up().sync();
             pad.slot(1).place(80, 60).sync();
             pad.slot(0).down(3).place(30, 30).sync();
             pad.place(30, 20).sync();
         },
         {threeFingers, "1.01 2:touch(0.80,0.50) 3:touch(0.24,0.50) 1:touch(0.20,0.50)",
          "1.02 2:touch(0.80,0.40) 3:touch(0.24,0.40) 1:touch(0.20,0.40)",
          "1.03 1:touch(0.20,0.40) 2:touch(0.80,0.40) 3:touch(0.24,0.40)",
          "1.04 1:touch(0.20,0.50) 2:touch(0.80,0.40) 3:touch(0.24,0.40)"}},
        {"the finger of a stand-in gets the slot of a finger that lifts",
         padWithSlots(2),
         [](Pad& pad) {
             twoFingersAnd(pad, BTN_TOOL_TRIPLETAP);
             count(pad, BTN_TOOL_TRIPLETAP, BTN_TOOL_DOUBLETAP);
             pad.slot(0).up().down(3).place(50, 90).sync();
         },
         {threeFingers, "1.01 1:left(0.20,0.50) 3:touch(0.24,0.50) 2:touch(0.80,0.50)"}},
    });
}

TEST(MissingFingers, IgnoresBoundingBoxCornersThatMoveWhenTheFingerCountChanges) {
    check({
        {"a second finger lands and the first becomes a corner",
         semiMultitouchPad(),
         [](Pad& pad) {
             pad.slot(0).down(1).place(40, 60).key(BTN_TOOL_FINGER, true).sync();
             pad.place(40, 30).slot(1).down(2).place(70, 60);
             count(pad, BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP);
             pad.sync();
             pad.slot(0).place(50, 30).slot(1).place(80, 60).sync();
         },
         {"1.00 1:make(0.40,0.40)", "1.01 1:touch(0.40,0.40) 2:make(0.70,0.40)",
          "1.02 1:touch(0.50,0.40) 2:touch(0.80,0.40)"}},
        {"the second finger lifts again",
         semiMultitouchPad(),
         [](Pad& pad) {
             pad.slot(0).down(1).place(40, 30).slot(1).down(2).place(70, 60);
             pad.key(BTN_TOOL_DOUBLETAP, true).sync();
             pad.slot(1).up().slot(0).place(40, 60);
             count(pad, BTN_TOOL_DOUBLETAP, BTN_TOOL_FINGER);
             pad.sync();
             pad.place(45, 60).sync();
         },
         {"1.00 1:make(0.40,0.70) 2:make(0.70,0.40)", "1.01 2:left(0.70,0.40) 1:touch(0.40,0.70)",
          "1.02 1:touch(0.45,0.70)"}},
        {"a third finger widens the box",
         semiMultitouchPad(),
         [](Pad& pad) {
             pad.slot(0).down(1).place(40, 30).slot(1).down(2).place(70, 60);
             pad.key(BTN_TOOL_DOUBLETAP, true).sync();
             count(pad, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP);
             pad.place(90, 90).sync();
         },
         {"1.00 1:make(0.40,0.70) 2:make(0.70,0.40)",
          "1.01 1:touch(0.40,0.70) 2:touch(0.70,0.40) 3:make(0.42,0.66)"}},
        {"a pad that tracks its fingers: the move counts",
         padWithSlots(2),
         [](Pad& pad) {
             pad.slot(0).down(1).place(40, 60).key(BTN_TOOL_FINGER, true).sync();
             pad.place(40, 30).slot(1).down(2).place(70, 60);
             count(pad, BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP);
             pad.sync();
         },
         {"1.00 1:make(0.40,0.40)", "1.01 1:touch(0.40,0.70) 2:make(0.70,0.40)"}},
    });
}

} // namespace
} // namespace glidemap::test
