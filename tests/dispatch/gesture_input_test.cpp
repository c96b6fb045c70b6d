// Fingers on the pad and clicks while the session is in front and while it is not. The engine is in
// virtual time.

#include "dispatch/gesture_input.h"
#include "kit/engine_stage.h"
#include "kit/recording_click_tap.h"
#include "kit/scripted_user_session.h"

#include <gmock/gmock.h>

#include <memory>

namespace glidemap::test {
namespace {

using enum GestureType;
using kit::fingers;
using testing::ElementsAre;
using testing::IsEmpty;

class GestureInputTest : public testing::Test {
protected:
    GestureInputTest() { stage.engine->stop(); }

    void tap(int count, double at) {
        stage.play(fingers(count).startingAt(at).down().until(at + 0.1).up());
    }

    kit::EngineStage stage;
    std::shared_ptr<kit::RecordingClickTap> tapPort = std::make_shared<kit::RecordingClickTap>();
    ClickMonitor clicks{tapPort, [this] {
                            return stage.engine->touchingCount();
                        }};
    std::shared_ptr<kit::ScriptedUserSession> session =
        std::make_shared<kit::ScriptedUserSession>();
    GestureInput input{stage.engine, clicks, session};
};

TEST_F(GestureInputTest, WhileAnotherSessionIsInFrontNothingIsRecognisedOrTaken) {
    input.start();
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create", "enable"));
    tap(3, 1);
    session->setActive(false);
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("disable", "remove"));
    tap(4, 2);
    EXPECT_FALSE(clicks.isRunning());
    session->setActive(true);
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create", "enable"));
    tap(5, 3);
    EXPECT_EQ(kit::gesturesOf(stage.heard), (std::vector{threeFingerTap, fiveFingerTap}));
}

TEST_F(GestureInputTest, InASessionThatIsNotInFrontItStartsOnceTheSessionIs) {
    session->setActive(false);
    input.start();
    tap(3, 1);
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    session->setActive(true);
    tap(4, 2);
    EXPECT_EQ(kit::gesturesOf(stage.heard), std::vector{fourFingerTap});
}

TEST_F(GestureInputTest, AnAnnouncementThatChangesNothingIsIgnored) {
    input.start();
    tapPort->takeNotes();
    session->setActive(true);
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
}

TEST_F(GestureInputTest, FingersThatRestWhileTheSessionChangesDecideNothing) {
    input.start();
    stage.play(fingers(3).startingAt(1).down().until(1.1));
    session->setActive(false);
    session->setActive(true);
    EXPECT_EQ(stage.engine->touchingCount(), 0);
    stage.submit({1.2, {}});
    stage.run();
    stage.finish();
    EXPECT_THAT(stage.heard, IsEmpty());
}

TEST_F(GestureInputTest, BeforeTheStartAndAfterTheEndTheSessionDoesNotMatter) {
    session->setActive(false);
    session->setActive(true);
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    input.start();
    input.stop();
    tapPort->takeNotes();
    session->setActive(false);
    session->setActive(true);
    input.devicesMayHaveChanged();
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    tap(3, 1);
    EXPECT_THAT(stage.heard, IsEmpty());
}

TEST_F(GestureInputTest, ClicksAreTriedAgainWhenDevicesChangeButNotInTheBackground) {
    tapPort->isPermitted = false;
    input.start();
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create (refused)"));
    session->setActive(false);
    tapPort->isPermitted = true;
    input.devicesMayHaveChanged();
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
    tapPort->isPermitted = false;
    session->setActive(true);
    tapPort->isPermitted = true;
    tapPort->takeNotes();
    input.devicesMayHaveChanged();
    EXPECT_THAT(tapPort->takeNotes(), ElementsAre("create", "enable"));
}

TEST_F(GestureInputTest, ASystemWithoutSessionsGivesNone) {
    GestureInput alone(stage.engine, clicks, nullptr);
    alone.start();
    tap(3, 1);
    EXPECT_EQ(kit::gesturesOf(stage.heard), std::vector{threeFingerTap});
    alone.stop();
}

TEST_F(GestureInputTest, TheSessionMayOutliveIt) {
    { const GestureInput shortLived(stage.engine, clicks, session); }
    session->setActive(false);
    EXPECT_THAT(tapPort->takeNotes(), IsEmpty());
}

} // namespace
} // namespace glidemap::test
