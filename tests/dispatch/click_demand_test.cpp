#include "dispatch/click_demand.h"
#include "dispatch_stage.h"
#include "kit/fake_click_tap.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using enum GestureType;
using testing::ElementsAre;
using testing::IsEmpty;

class ClickDemandTest : public testing::Test {
protected:
    std::vector<std::string> reportedAbout(const BindingList& bindings) {
        stage.store->setBindings(bindings);
        return tap->takeNotes();
    }

    DispatchStage stage;
    std::shared_ptr<FakeClickTap> tap = std::make_shared<FakeClickTap>();
};

TEST_F(ClickDemandTest, NotifiesImmediatelyOfTheCurrentDemand) {
    const ClickDemand without(stage.dispatcher, tap);
    EXPECT_THAT(tap->takeNotes(), ElementsAre("not needed"));
    stage.store->setBindings({typing(1, twoFingerClick)});
    tap->takeNotes();
    const ClickDemand with(stage.dispatcher, tap);
    EXPECT_THAT(tap->takeNotes(), ElementsAre("needed"));
}

TEST_F(ClickDemandTest, ClicksAreNeededExactlyWhileAnEnabledClickBindingExists) {
    const ClickDemand demand(stage.dispatcher, tap);
    for (const GestureType gesture : allGestureTypes) {
        SCOPED_TRACE(rawValue(gesture));
        reportedAbout({});
        const bool isClick =
            gesture == twoFingerClick || gesture == threeFingerClick || gesture == fourFingerClick;
        EXPECT_THAT(reportedAbout({disabled(typing(1, gesture))}), IsEmpty());
        EXPECT_EQ(reportedAbout({typing(1, gesture)}),
                  isClick ? std::vector<std::string>{"needed"} : std::vector<std::string>{});
    }
}

TEST_F(ClickDemandTest, ClicksAreNeededEvenIfBoundForOnlyOneApplication) {
    const ClickDemand demand(stage.dispatcher, tap);
    tap->takeNotes();
    EXPECT_THAT(reportedAbout({typing(1, fourFingerClick, AppScope{editorID, editorName})}),
                ElementsAre("needed"));
}

TEST_F(ClickDemandTest, NotifiesOnlyWhenTheDemandChanges) {
    const ClickDemand demand(stage.dispatcher, tap);
    tap->takeNotes();
    EXPECT_THAT(reportedAbout({typing(1, pinchIn)}), IsEmpty());
    EXPECT_THAT(reportedAbout({typing(1, pinchIn), typing(2, twoFingerClick)}),
                ElementsAre("needed"));
    EXPECT_THAT(reportedAbout({typing(3, threeFingerClick)}), IsEmpty());
    EXPECT_THAT(reportedAbout({disabled(typing(3, threeFingerClick))}), ElementsAre("not needed"));
    EXPECT_THAT(reportedAbout({}), IsEmpty());
}

TEST_F(ClickDemandTest, ClicksAreNotNeededWhileTheMasterSwitchIsOff) {
    stage.store->setBindings({typing(1, twoFingerClick)});
    const ClickDemand demand(stage.dispatcher, tap);
    EXPECT_THAT(tap->takeNotes(), ElementsAre("needed"));
    stage.dispatcher->setMasterEnabled(false);
    EXPECT_THAT(tap->takeNotes(), ElementsAre("not needed"));
    EXPECT_THAT(reportedAbout({}), IsEmpty());
    stage.dispatcher->setMasterEnabled(true);
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
    stage.dispatcher->setMasterEnabled(false);
    EXPECT_THAT(reportedAbout({typing(1, twoFingerClick)}), IsEmpty());
    stage.dispatcher->setMasterEnabled(true);
    EXPECT_THAT(tap->takeNotes(), ElementsAre("needed"));
}

TEST_F(ClickDemandTest, DoesNotNotifyAfterDestruction) {
    std::make_unique<ClickDemand>(stage.dispatcher, tap).reset();
    tap->takeNotes();
    EXPECT_THAT(reportedAbout({typing(1, twoFingerClick)}), IsEmpty());
    stage.dispatcher->setMasterEnabled(false);
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
}

} // namespace
} // namespace glidemap::test
