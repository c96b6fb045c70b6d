#include "drivers/evdev/pad_state.h"

#include <gtest/gtest.h>

namespace glidemap::test {
namespace {

void apply(PadState& state, std::initializer_list<InputEvent> events) {
    for (const InputEvent& event : events) {
        state.apply(event);
    }
}

struct Row {
    const char* what;
    std::vector<InputEvent> events;
    bool neutral;
};

TEST(PadState, IsNeutralWhileNoFingerIsDownAndNoKeyIsPressed) {
    const Row rows[] = {
        {"no events", {}, true},
        {"a finger is down", {{0, EV_ABS, ABS_MT_TRACKING_ID, 0}}, false},
        {"the finger has lifted",
         {{0, EV_ABS, ABS_MT_TRACKING_ID, 0}, {0, EV_ABS, ABS_MT_TRACKING_ID, -1}},
         true},
        {"another finger is still down",
         {{0, EV_ABS, ABS_MT_TRACKING_ID, 3},
          {0, EV_ABS, ABS_MT_SLOT, 1},
          {0, EV_ABS, ABS_MT_TRACKING_ID, 4},
          {0, EV_ABS, ABS_MT_SLOT, 0},
          {0, EV_ABS, ABS_MT_TRACKING_ID, -1}},
         false},
        {"a button is pressed", {{0, EV_KEY, BTN_LEFT, 1}}, false},
        {"the key with the highest code is pressed", {{0, EV_KEY, KEY_MAX, 1}}, false},
        {"the button is released", {{0, EV_KEY, BTN_LEFT, 1}, {0, EV_KEY, BTN_LEFT, 0}}, true},
        {"a position remains", {{0, EV_ABS, ABS_MT_POSITION_X, 9}}, true},
        {"a slot beyond the last",
         {{0, EV_ABS, ABS_MT_SLOT, 2}, {0, EV_ABS, ABS_MT_TRACKING_ID, 4}},
         true},
        {"a slot before the first",
         {{0, EV_ABS, ABS_MT_SLOT, -1}, {0, EV_ABS, ABS_MT_TRACKING_ID, 4}},
         true},
        {"an invalid key", {{0, EV_KEY, KEY_CNT, 1}}, true},
        {"an invalid axis", {{0, EV_ABS, ABS_CNT, 1}}, true},
    };
    for (const Row& row : rows) {
        PadState state(2);
        for (const InputEvent& event : row.events) {
            state.apply(event);
        }
        EXPECT_EQ(state.isNeutral(), row.neutral) << row.what;
    }
}

TEST(PadState, TracksTheAxesOfEachSlotAndTheSharedAxes) {
    PadState state(2);
    apply(state, {{0, EV_ABS, ABS_MT_POSITION_X, 10},
                  {0, EV_ABS, ABS_MT_SLOT, 1},
                  {0, EV_ABS, ABS_MT_POSITION_X, 20},
                  {0, EV_ABS, ABS_MT_TOOL_Y, 21},
                  {0, EV_ABS, ABS_MT_TRACKING_ID, 0},
                  {0, EV_ABS, ABS_X, 30}});
    EXPECT_EQ(state.slot(), 1);
    EXPECT_EQ(state.slotValue(0, ABS_MT_POSITION_X), 10);
    EXPECT_EQ(state.slotValue(1, ABS_MT_POSITION_X), 20);
    EXPECT_EQ(state.slotValue(1, ABS_MT_TOOL_Y), 21);
    EXPECT_EQ(state.slotValue(0, ABS_MT_TRACKING_ID), -1);
    EXPECT_FALSE(state.isDown(0));
    EXPECT_TRUE(state.isDown(1));
    EXPECT_EQ(state.axis(ABS_X), 30);
    EXPECT_EQ(state.axis(ABS_Y), 0);
}

TEST(PadState, DetectsAHeldKeyThatIsUpInAnotherState) {
    PadState pad(1);
    PadState clone(1);
    apply(clone, {{0, EV_KEY, BTN_TOUCH, 1}});
    EXPECT_FALSE(pad.holdsKeyThatIsUpIn(clone));
    apply(pad, {{0, EV_KEY, BTN_TOUCH, 1}});
    EXPECT_FALSE(pad.holdsKeyThatIsUpIn(clone));
    apply(pad, {{0, EV_KEY, BTN_RIGHT, 1}});
    EXPECT_TRUE(pad.holdsKeyThatIsUpIn(clone));
    EXPECT_FALSE(clone.holdsKeyThatIsUpIn(pad));
}

TEST(PadState, SupportsATouchpadWithoutSlots) {
    PadState state(-1);
    apply(state, {{0, EV_ABS, ABS_MT_TRACKING_ID, 1}});
    EXPECT_EQ(state.slotCount(), 0);
    EXPECT_TRUE(state.isNeutral());
}

} // namespace
} // namespace glidemap::test
