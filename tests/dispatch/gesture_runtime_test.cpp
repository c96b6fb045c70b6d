// Tests touches and clicks while the session is active and while it is inactive. The engine runs in
// virtual time.

#include "dispatch/gesture_runtime.h"
#include "dispatch_stage.h"
#include "kit/engine_stage.h"
#include "kit/fake_click_tap.h"
#include "kit/fake_user_session.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <vector>

namespace glidemap::test {
namespace {

using enum GestureType;
using testing::ElementsAre;
using testing::IsEmpty;

class GestureRuntimeTest : public testing::Test {
protected:
    GestureRuntimeTest() {
        tapPort->takeNotes();
        pad.engine->stop(); // the stage has already started it
    }

    void tap(int count, double at) {
        pad.play(fingers(count).startingAt(at).down().until(at + 0.1).up());
    }

    // Returns the logged gestures, oldest first.
    std::vector<GestureType> recognised() {
        stage.mainQueue->runAll();
        std::vector<GestureType> gestures;
        for (const Logged& entry : stage.logged()) {
            gestures.insert(gestures.begin(), entry.gesture);
        }
        return gestures;
    }

    EngineStage pad;
    DispatchStage stage;
    std::shared_ptr<FakeClickTap> tapPort = std::make_shared<FakeClickTap>();
    std::shared_ptr<FakeUserSession> session = stage.session;
    std::optional<GestureRuntime> runtime{
        std::in_place,
        GestureRuntime::Parts{pad.engine, stage.store, stage.dispatcher, tapPort, session}};
};

TEST_F(GestureRuntimeTest, RecognisesAndConsumesNothingWhileAnotherSessionIsActive) {
    runtime->start();
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create", "enable"));
    tap(3, 1);
    session->setActive(false);
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("disable", "remove"));
    tap(4, 2);
    EXPECT_FALSE(runtime->clickMonitor().isRunning());
    session->setActive(true);
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create", "enable"));
    tap(5, 3);
    EXPECT_EQ(recognised(), (std::vector{threeFingerTap, fiveFingerTap}));
}

TEST_F(GestureRuntimeTest, StartsWhenTheSessionBecomesActive) {
    session->setActive(false);
    runtime->start();
    tap(3, 1);
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    session->setActive(true);
    tap(4, 2);
    EXPECT_EQ(recognised(), std::vector{fourFingerTap});
}

TEST_F(GestureRuntimeTest, SessionNotificationWithoutAChangeIsIgnored) {
    runtime->start();
    tapPort->takeNotes();
    session->setActive(true);
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
}

TEST_F(GestureRuntimeTest, SessionActivationScansForDevicesOnce) {
    runtime->start();
    int scans = 0;
    const Subscription subscription = pad.manager.changes().subscribe({}, [&scans] { ++scans; });
    session->setActive(false);
    EXPECT_EQ(scans, 0);
    session->setActive(true);
    EXPECT_EQ(scans, 1);
}

TEST_F(GestureRuntimeTest, FingersRestingDuringASessionChangeMakeNoGesture) {
    runtime->start();
    pad.play(fingers(3).startingAt(1).down().until(1.1));
    session->setActive(false);
    session->setActive(true);
    EXPECT_EQ(pad.engine->touchingCount(), 0);
    pad.submit({1.2, {}});
    pad.run();
    pad.finish();
    EXPECT_THAT(recognised(), IsEmpty());
}

TEST_F(GestureRuntimeTest, RecognisesAndConsumesNothingWhileTheMachineSleeps) {
    runtime->start();
    tapPort->takeNotes();
    session->setAsleep(true);
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("disable", "remove"));
    tap(3, 1);
    session->setActive(false);
    session->setAsleep(false); // the machine is awake, but another session is active
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    tap(3, 2);
    session->setActive(true);
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create", "enable"));
    tap(4, 3);
    EXPECT_EQ(recognised(), std::vector{fourFingerTap});
}

// The clock of the reports stands still during sleep.
TEST_F(GestureRuntimeTest, TapsBeforeAndAfterSleepMakeNoDoubleTap) {
    runtime->start();
    tap(3, 1);
    session->setAsleep(true);
    session->setAsleep(false);
    tap(3, 1.3);
    EXPECT_EQ(recognised(), (std::vector{threeFingerTap, threeFingerTap}));
}

TEST_F(GestureRuntimeTest, FingersRestingDuringSleepMakeNoGesture) {
    runtime->start();
    pad.play(fingers(3).startingAt(1).down().until(1.7));
    session->setAsleep(true);
    session->setAsleep(false);
    pad.play(fingers(3).startingAt(1.75).down().until(2).up());
    pad.finish();
    EXPECT_THAT(recognised(), ElementsAre(threeFingerTap));
}

TEST_F(GestureRuntimeTest, SessionChangesBeforeStartAndAfterStopAreIgnored) {
    session->setActive(false);
    session->setActive(true);
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    runtime->start();
    runtime->stop();
    tapPort->takeNotes();
    session->setActive(false);
    session->setActive(true);
    runtime->accessMayHaveChanged();
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    tap(3, 1);
    EXPECT_THAT(recognised(), IsEmpty());
}

TEST_F(GestureRuntimeTest, AccessChangeRetriesClickMonitoringOnlyInTheActiveSession) {
    tapPort->isPermitted = false;
    runtime->start();
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create (refused)"));
    session->setActive(false);
    tapPort->isPermitted = true;
    runtime->accessMayHaveChanged();
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    tapPort->isPermitted = false;
    session->setActive(true);
    tapPort->isPermitted = true;
    tapPort->takeNotes();
    runtime->accessMayHaveChanged();
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create", "enable"));
}

TEST_F(GestureRuntimeTest, WorksWithoutASessionPort) {
    runtime.emplace(GestureRuntime::Parts{pad.engine, stage.store, stage.dispatcher, tapPort});
    runtime->start();
    tap(3, 1);
    EXPECT_EQ(recognised(), std::vector{threeFingerTap});
    runtime->stop();
}

TEST_F(GestureRuntimeTest, SessionMayOutliveTheRuntime) {
    runtime.reset();
    session->setActive(false);
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
}

TEST_F(GestureRuntimeTest, ClickTapIsNotifiedWhenClickDemandChanges) {
    stage.store->setBindings({typing(1, twoFingerClick)});
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("needed"));
}

TEST_F(GestureRuntimeTest, DispatchesNothingAfterDestruction) {
    stage.store->setBindings({typing(1, twoFingerDoubleTap)});
    runtime->start();
    runtime.reset();
    pad.recognise(threeFingerTap);
    EXPECT_EQ(stage.mainQueue->waiting(), 0U);
    EXPECT_FALSE(pad.engine->sessionRecognizer().doubleTapBindingExists(2));
}

} // namespace
} // namespace glidemap::test
