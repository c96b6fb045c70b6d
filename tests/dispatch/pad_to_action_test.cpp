// Tests the whole path from fingers and the touchpad's button to the action and the log.

#include "dispatch/gesture_runtime.h"
#include "dispatch_stage.h"
#include "kit/engine_stage.h"
#include "kit/fake_click_tap.h"
#include "kit/script.h"

#include <gmock/gmock.h>

#include <memory>
#include <span>
#include <vector>

namespace glidemap::test {
namespace {

using enum GestureType;
using std::nullopt;
using testing::ElementsAre;
using testing::IsEmpty;
using Verdict = ClickTap::Verdict;

class PadToActionTest : public testing::Test {
protected:
    PadToActionTest() { runtime.start(); }

    void perform(const Script& script) {
        pad.play(script);
        pad.finish();
        stage.mainQueue->runAll();
    }

    // Presses the button with this number of fingers on the pad, releases it after they have
    // lifted, and returns both verdicts. The fingers rest too long for a tap and too briefly for a
    // long press.
    std::vector<Verdict> click(int fingerCount) {
        const auto frames =
            fingers(fingerCount).startingAt(pad.time.now() + 1).down().hold(0.5).up().frames();
        const std::span all(frames);
        pad.play(all.first(all.size() - 1));
        std::vector<Verdict> verdicts = {tap->offer({ClickEventType::leftMouseDown, 0})};
        pad.play(all.last(1));
        verdicts.push_back(tap->offer({ClickEventType::leftMouseUp, 0}));
        stage.mainQueue->runAll();
        return verdicts;
    }

    EngineStage pad;
    DispatchStage stage;
    std::shared_ptr<FakeClickTap> tap = std::make_shared<FakeClickTap>();
    GestureRuntime runtime{{pad.engine, stage.store, stage.dispatcher, tap}};
    std::vector<Verdict> swallowed = {Verdict::drop, Verdict::drop};
    std::vector<Verdict> untouched = {Verdict::pass, Verdict::pass};
};

TEST_F(PadToActionTest, BoundTapTypesItsShortcut) {
    stage.store->setBindings({typing(1, threeFingerTap)});
    perform(fingers(3).down().hold(0.1).up());
    EXPECT_THAT(stage.typed(), ElementsAre(1));
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{threeFingerTap, "Shortcut S", nullopt}));
}

TEST_F(PadToActionTest, SingleTapWaitsOnlyWhileItsDoubleTapIsBound) {
    stage.store->setBindings({typing(1, twoFingerTap), typing(2, twoFingerDoubleTap)});
    const Script taps = fingers(2).down().hold(0.1).up().wait(0.1).down().hold(0.1).up();
    perform(taps);
    EXPECT_THAT(stage.typed(), ElementsAre(2));
    stage.store->setBindings({typing(1, twoFingerTap)});
    perform(fingers(2).startingAt(10).down().hold(0.1).up());
    EXPECT_THAT(stage.typed(), ElementsAre(2, 1));
}

TEST_F(PadToActionTest, BoundTwoFingerClickIsSwallowedAndUnboundClickPasses) {
    EXPECT_EQ(click(2), untouched);
    EXPECT_THAT(stage.logged(), IsEmpty());
    stage.store->setBindings({typing(1, twoFingerClick)});
    EXPECT_EQ(click(2), swallowed);
    EXPECT_THAT(stage.typed(), ElementsAre(1));
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerClick, "Shortcut S", nullopt}));
}

TEST_F(PadToActionTest, OnlyTwoToFourFingersMakeAClickGesture) {
    stage.store->setBindings(
        {typing(2, twoFingerClick), typing(3, threeFingerClick), typing(4, fourFingerClick)});
    for (const int count : {1, 5}) {
        EXPECT_EQ(click(count), untouched);
    }
    for (const int count : {2, 3, 4}) {
        EXPECT_EQ(click(count), swallowed);
    }
    EXPECT_THAT(stage.typed(), ElementsAre(2, 3, 4));
}

TEST_F(PadToActionTest, ClickBoundForOneApplicationPassesInOtherApplications) {
    stage.store->setBindings({typing(1, twoFingerClick, AppScope{editorID, editorName})});
    EXPECT_EQ(click(2), untouched);
    stage.bringEditorForward();
    EXPECT_EQ(click(2), swallowed);
    EXPECT_THAT(stage.logged(), ElementsAre(Logged{twoFingerClick, "Shortcut S", editorName}));
}

TEST_F(PadToActionTest, EveryClickPassesWhileTheMasterSwitchIsOff) {
    stage.store->setBindings({typing(1, twoFingerClick)});
    stage.dispatcher->setMasterEnabled(false);
    EXPECT_EQ(click(2), untouched);
    EXPECT_THAT(stage.logged(), IsEmpty());
}

} // namespace
} // namespace glidemap::test
