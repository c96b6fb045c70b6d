#include "drivers/evdev/clone_writer.h"
#include "fake_clone.h"

#include <gtest/gtest.h>

namespace glidemap::test {
namespace {

using Texts = std::vector<std::string>;
using Events = std::vector<InputEvent>;

class CloneWriterTest : public testing::Test {
protected:
    CloneWriterTest() { system->makeClone(); }

    // Applies events that the touchpad sent before the clone existed.
    void before(const Events& events) { applyToSource(events); }

    bool say(const Events& events, double time = 1) {
        const std::int32_t slot = source.slot();
        applyToSource(events);
        return writer.forward(events, slot, source, time);
    }

    // Writes a frame without the dropped button change.
    void sayWithout(const InputEvent& button, double time = 1) {
        applyToSource({button});
        EXPECT_TRUE(writer.forward({}, source.slot(), source, time));
    }

    Texts written() const {
        Texts frames = system->journal();
        frames.erase(frames.begin()); // the entry for the clone's creation
        return frames;
    }

    void applyToSource(const Events& events) {
        for (const InputEvent& event : events) {
            source.apply(event);
        }
    }

    std::shared_ptr<FakeSystem> system = std::make_shared<FakeSystem>();
    PadState source{3};
    CloneWriter writer{std::make_unique<FakeClone>(system), 3};
};

TEST_F(CloneWriterTest, ForwardsAFrameUnchanged) {
    EXPECT_TRUE(say({{1, EV_ABS, ABS_MT_TRACKING_ID, 5},
                     {1, EV_ABS, ABS_MT_POSITION_Y, 7},
                     {1, EV_ABS, ABS_MT_POSITION_X, 6},
                     {1, EV_KEY, BTN_TOUCH, 1},
                     {1, EV_MSC, MSC_TIMESTAMP, 9}},
                    2.5));
    EXPECT_EQ(written(), (Texts{"3:57=5 3:54=7 3:53=6 1:330=1 4:5=9"}));
    EXPECT_EQ(system->timeOfLastFrame(), 2.5);
}

TEST_F(CloneWriterTest, WritesNothingForAnEmptyFrame) {
    EXPECT_TRUE(say({}));
    EXPECT_EQ(written(), Texts());
}

TEST_F(CloneWriterTest, BeginsInTheTouchpadsCurrentSlot) {
    before({{1, EV_ABS, ABS_MT_SLOT, 2}});
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, 5}});
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, -1}});
    EXPECT_EQ(written(), (Texts{"3:47=2 3:57=5", "3:57=-1"}));
}

TEST_F(CloneWriterTest, AddsValuesThatTheCloneLacksWhenAFingerLands) {
    before({{1, EV_ABS, ABS_MT_POSITION_X, 100},
            {1, EV_ABS, ABS_MT_POSITION_Y, 200},
            {1, EV_ABS, ABS_MT_PRESSURE, 30},
            {1, EV_ABS, ABS_X, 100},
            {1, EV_ABS, ABS_MT_SLOT, 1},
            {1, EV_ABS, ABS_MT_POSITION_X, 300},
            {1, EV_ABS, ABS_MT_SLOT, 0}});
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, 5}, {1, EV_ABS, ABS_MT_POSITION_Y, 201}});
    say({{1, EV_ABS, ABS_MT_SLOT, 1}, {1, EV_ABS, ABS_MT_TRACKING_ID, 6}});
    EXPECT_EQ(written(),
              (Texts{"3:57=5 3:54=201 3:53=100 3:58=30 3:0=100", "3:47=1 3:57=6 3:53=300"}));
}

TEST_F(CloneWriterTest, AddsMissingValuesForEachFingerThatLandsInTheSameFrame) {
    before({{1, EV_ABS, ABS_MT_POSITION_X, 100},
            {1, EV_ABS, ABS_MT_SLOT, 1},
            {1, EV_ABS, ABS_MT_POSITION_X, 300},
            {1, EV_ABS, ABS_MT_SLOT, 0}});
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, 5},
         {1, EV_ABS, ABS_MT_SLOT, 1},
         {1, EV_ABS, ABS_MT_TRACKING_ID, 6}});
    say({{1, EV_ABS, ABS_MT_POSITION_X, 301}});
    EXPECT_EQ(written(),
              (Texts{"3:57=5 3:47=1 3:57=6 3:47=0 3:53=100 3:47=1 3:53=300", "3:53=301"}));
}

TEST_F(CloneWriterTest, AddsNoValuesThatTheCloneAlreadyHas) {
    const Events landing{{1, EV_ABS, ABS_MT_TRACKING_ID, 5}, {1, EV_ABS, ABS_MT_POSITION_X, 9}};
    say(landing);
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, -1}});
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, 6}});
    EXPECT_EQ(written(), (Texts{"3:57=5 3:53=9", "3:57=-1", "3:57=6"}));
}

TEST_F(CloneWriterTest, ForwardsAFingerThatLandsInAnInvalidSlot) {
    say({{1, EV_ABS, ABS_MT_SLOT, 3}, {1, EV_ABS, ABS_MT_TRACKING_ID, 5}});
    EXPECT_EQ(written(), (Texts{"3:47=3 3:57=5"}));
}

constexpr InputEvent leftDown{1, EV_KEY, BTN_LEFT, 1};
constexpr InputEvent leftUp{1, EV_KEY, BTN_LEFT, 0};

const Events twoFingers{{1, EV_ABS, ABS_MT_TRACKING_ID, 5},
                        {1, EV_ABS, ABS_MT_SLOT, 1},
                        {1, EV_ABS, ABS_MT_TRACKING_ID, 6}};
const Events twoLifts{{1, EV_ABS, ABS_MT_SLOT, 0},
                      {1, EV_ABS, ABS_MT_TRACKING_ID, -1},
                      {1, EV_ABS, ABS_MT_SLOT, 1},
                      {1, EV_ABS, ABS_MT_TRACKING_ID, -1}};

TEST_F(CloneWriterTest, MarksFingersAsPalmsFromADroppedPressUntilItsRelease) {
    say(twoFingers);
    sayWithout(leftDown);
    say({{1, EV_ABS, ABS_MT_POSITION_X, 9}});
    sayWithout(leftUp, 3);
    EXPECT_EQ(system->timeOfLastFrame(), 3);
    say(twoLifts);
    EXPECT_EQ(written(), (Texts{"3:57=5 3:47=1 3:57=6", "3:47=0 3:55=2 3:47=1 3:55=2", "3:53=9",
                                "3:47=0 3:55=0 3:47=1 3:55=0", "3:47=0 3:57=-1 3:47=1 3:57=-1"}));
}

TEST_F(CloneWriterTest, FrameAfterAPalmMarkBeginsInTheTouchpadsCurrentSlot) {
    say(twoFingers);
    say({{1, EV_ABS, ABS_MT_SLOT, 0}});
    sayWithout(leftDown);
    say({{1, EV_ABS, ABS_MT_POSITION_X, 9}});
    EXPECT_EQ(written(),
              (Texts{"3:57=5 3:47=1 3:57=6", "3:47=0", "3:55=2 3:47=1 3:55=2", "3:47=0 3:53=9"}));
}

TEST_F(CloneWriterTest, FingerThatLandsDuringADroppedPressIsAPalm) {
    sayWithout(leftDown);
    say({{1, EV_ABS, ABS_MT_SLOT, 2}, {1, EV_ABS, ABS_MT_TRACKING_ID, 5}});
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, 6}});
    sayWithout(leftUp);
    EXPECT_EQ(written(), (Texts{"3:47=2 3:57=5 3:55=2", "3:57=6 3:55=0 3:55=2", "3:55=0"}));
}

TEST_F(CloneWriterTest, FingerThatLiftsDuringADroppedPressLeavesNoPalmInItsSlot) {
    say(twoFingers);
    sayWithout(leftDown);
    say(twoLifts);
    sayWithout(leftUp);
    say(twoFingers);
    EXPECT_EQ(written(), (Texts{"3:57=5 3:47=1 3:57=6", "3:47=0 3:55=2 3:47=1 3:55=2",
                                "3:47=0 3:57=-1 3:47=1 3:57=-1 3:47=0 3:55=0 3:47=1 3:55=0",
                                "3:57=5 3:47=1 3:57=6"}));
}

TEST_F(CloneWriterTest, ForwardedPressMarksNoPalms) {
    say(twoFingers);
    say({leftDown});
    say({leftUp});
    say(twoLifts);
    EXPECT_EQ(written(), (Texts{"3:57=5 3:47=1 3:57=6", "1:272=1", "1:272=0",
                                "3:47=0 3:57=-1 3:47=1 3:57=-1"}));
}

TEST_F(CloneWriterTest, DroppedPressMarksPalmsWhileAnotherPressIsForwarded) {
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, 5}});
    sayWithout(leftDown);
    say({{1, EV_KEY, BTN_RIGHT, 1}});
    say({{1, EV_KEY, BTN_RIGHT, 0}});
    sayWithout(leftUp);
    EXPECT_EQ(written(), (Texts{"3:57=5", "3:55=2", "1:273=1", "1:273=0", "3:55=0"}));
}

TEST_F(CloneWriterTest, RemovesPalmMarksAtTheNextFrameAfterALostRelease) {
    say(twoFingers);
    sayWithout(leftDown);
    applyToSource({leftUp});
    say({{1, EV_ABS, ABS_MT_POSITION_Y, 4}});
    EXPECT_EQ(written().back(), "3:54=4 3:47=0 3:55=0 3:47=1 3:55=0");
}

TEST_F(CloneWriterTest, RestoresTheTouchpadsToolTypeAfterADroppedPress) {
    constexpr InputEvent palm{1, EV_ABS, ABS_MT_TOOL_TYPE, MT_TOOL_PALM};
    constexpr InputEvent finger{1, EV_ABS, ABS_MT_TOOL_TYPE, MT_TOOL_FINGER};
    say(twoFingers);
    say({palm});
    sayWithout(leftDown);
    sayWithout(leftUp);
    say({finger});
    sayWithout(leftDown);
    say({palm});
    say({finger});
    say({palm});
    sayWithout(leftUp);
    EXPECT_EQ(written(), (Texts{"3:57=5 3:47=1 3:57=6", "3:55=2", "3:47=0 3:55=2", "3:55=0",
                                "3:47=1 3:55=0", "3:47=0 3:55=2 3:47=1 3:55=2", "3:55=2",
                                "3:55=0 3:55=2", "3:55=2", "3:47=0 3:55=0"}));
}

TEST_F(CloneWriterTest, ReleaseAllReleasesOnlyHeldContactsAndKeys) {
    EXPECT_TRUE(writer.releaseAll());
    EXPECT_EQ(written(), Texts());
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, 5},
         {1, EV_ABS, ABS_MT_SLOT, 2},
         {1, EV_ABS, ABS_MT_TRACKING_ID, 6},
         {1, EV_KEY, BTN_LEFT, 1},
         {1, EV_KEY, BTN_TOUCH, 1}});
    say({{1, EV_ABS, ABS_MT_TRACKING_ID, -1}});
    EXPECT_TRUE(writer.isPressed(BTN_LEFT));
    EXPECT_TRUE(writer.releaseAll());
    EXPECT_EQ(written().back(), "3:47=0 3:57=-1 1:272=0 1:330=0");
    EXPECT_FALSE(writer.isPressed(BTN_LEFT));
    EXPECT_EQ(system->timeOfLastFrame(), 0) << "the kernel must stamp the frame";
}

TEST_F(CloneWriterTest, ReturnsFalseWhenAWriteFails) {
    system->breakClone();
    EXPECT_FALSE(say({{1, EV_KEY, BTN_LEFT, 1}}));
    EXPECT_FALSE(writer.releaseAll());
}

} // namespace
} // namespace glidemap::test
