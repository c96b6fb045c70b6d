#include "dispatch/click_monitor.h"
#include "kit/fake_click_tap.h"
#include "kit/printers.h"

#include <gmock/gmock.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using enum ClickEventType;
using enum GestureType;
using testing::ElementsAre;
using testing::IsEmpty;
using Verdict = ClickTap::Verdict;

constexpr auto pass = Verdict::pass;
constexpr auto drop = Verdict::drop;

class ClickMonitorTest : public testing::Test {
protected:
    ClickMonitorTest() { takeClicks(); }

    void takeClicks() {
        monitor->onClickGesture = [this](GestureType gesture) {
            offered.push_back(gesture);
            return isConsumed;
        };
    }

    Verdict press(std::int64_t button = 0) { return tap->offer({leftMouseDown, button}); }
    Verdict release(std::int64_t button = 0) { return tap->offer({leftMouseUp, button}); }

    int fingerCount = 2;
    bool isConsumed = true;
    std::vector<GestureType> offered;
    std::shared_ptr<test::FakeClickTap> tap = std::make_shared<test::FakeClickTap>();
    std::unique_ptr<ClickMonitor> monitor =
        std::make_unique<ClickMonitor>(tap, [this] { return fingerCount; });
};

std::optional<GestureType> clickOf(int fingerCount) {
    switch (fingerCount) {
    case 2:
        return twoFingerClick;
    case 3:
        return threeFingerClick;
    case 4:
        return fourFingerClick;
    default:
        return std::nullopt;
    }
}

TEST_F(ClickMonitorTest, IsIdleUntilStarted) {
    EXPECT_FALSE(monitor->isRunning());
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
}

TEST_F(ClickMonitorTest, StartCreatesAndEnablesTheTapOnce) {
    monitor->start();
    EXPECT_TRUE(monitor->isRunning());
    EXPECT_THAT(tap->takeNotes(), ElementsAre("create", "enable"));
    monitor->start();
    EXPECT_TRUE(monitor->isRunning());
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
}

TEST_F(ClickMonitorTest, StartFailsWithoutPermissionAndCanBeRetried) {
    tap->isPermitted = false;
    monitor->start();
    EXPECT_FALSE(monitor->isRunning());
    EXPECT_THAT(tap->takeNotes(), ElementsAre("create (refused)"));
    monitor->stop();
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
    tap->isPermitted = true;
    monitor->start();
    EXPECT_TRUE(monitor->isRunning());
    EXPECT_THAT(tap->takeNotes(), ElementsAre("create", "enable"));
}

TEST_F(ClickMonitorTest, StopDisablesAndRemovesTheTapOnce) {
    monitor->stop();
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
    monitor->start();
    tap->takeNotes();
    monitor->stop();
    EXPECT_FALSE(monitor->isRunning());
    EXPECT_THAT(tap->takeNotes(), ElementsAre("disable", "remove"));
    monitor->stop();
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
    monitor->start();
    EXPECT_THAT(tap->takeNotes(), ElementsAre("create", "enable"));
}

TEST_F(ClickMonitorTest, EventsPassAfterTheDestructorHasRemovedTheTap) {
    monitor->start();
    tap->takeNotes();
    monitor.reset();
    EXPECT_THAT(tap->takeNotes(), ElementsAre("disable", "remove"));
    for (const ClickEventType type : {leftMouseDown, leftMouseUp, tapDisabledByTimeout}) {
        EXPECT_EQ(tap->offer({type, 0}), pass);
    }
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
    EXPECT_THAT(offered, IsEmpty());
}

TEST_F(ClickMonitorTest, DestructorDoesNotCallTheTapAfterAStop) {
    monitor->start();
    monitor->stop();
    tap->takeNotes();
    monitor.reset();
    EXPECT_THAT(tap->takeNotes(), IsEmpty());
}

// Tests every combination of event type, finger count and callback result.
TEST_F(ClickMonitorTest, OffersOnlyPressesWithTwoToFourFingersAndDropsTheConsumedOnes) {
    enum class Answer { consumed, rejected, withoutCallback };
    for (const ClickEventType type : {leftMouseDown, leftMouseUp, rightMouseDown, rightMouseUp,
                                      tapDisabledByTimeout, tapDisabledByUserInput, other}) {
        for (const int count : {-1, 0, 1, 2, 3, 4, 5, 6, 11}) {
            for (const Answer answer :
                 {Answer::consumed, Answer::rejected, Answer::withoutCallback}) {
                SCOPED_TRACE(testing::Message()
                             << "event " << static_cast<int>(type) << ", " << count
                             << " fingers, answer " << static_cast<int>(answer));
                monitor = std::make_unique<ClickMonitor>(tap, [this] { return fingerCount; });
                if (answer != Answer::withoutCallback) {
                    takeClicks();
                }
                fingerCount = count;
                isConsumed = answer == Answer::consumed;
                offered.clear();
                monitor->start();
                tap->takeNotes();

                const bool isPress = type == leftMouseDown || type == rightMouseDown;
                const auto click = isPress ? clickOf(count) : std::nullopt;
                EXPECT_EQ(tap->offer({type, 0}), click && answer == Answer::consumed ? drop : pass);
                EXPECT_EQ(offered, click && answer != Answer::withoutCallback
                                       ? std::vector{*click}
                                       : std::vector<GestureType>{});
                const bool isNotice =
                    type == tapDisabledByTimeout || type == tapDisabledByUserInput;
                EXPECT_EQ(tap->takeNotes(), isNotice ? std::vector<std::string>{"enable"}
                                                     : std::vector<std::string>{});
            }
        }
    }
}

TEST_F(ClickMonitorTest, EventTapDisabledByATimeoutIsReenabledEveryTime) {
    monitor->start();
    tap->takeNotes();
    EXPECT_EQ(tap->offer({tapDisabledByTimeout, 0}), pass);
    EXPECT_EQ(tap->offer({tapDisabledByUserInput, 0}), pass);
    EXPECT_EQ(tap->offer({tapDisabledByTimeout, 0}), pass);
    EXPECT_THAT(tap->takeNotes(), ElementsAre("enable", "enable", "enable"));
    EXPECT_EQ(press(), drop);
}

struct Step {
    ClickEvent event;
    int fingerCount;
    bool isConsumed;
    Verdict expected;
};

struct Story {
    std::string fact;
    std::vector<Step> steps;
};

TEST_F(ClickMonitorTest, OnlyTheReleaseOfADroppedPressIsDropped) {
    const Story stories[] = {
        {"a dropped press loses its release, and only one",
         {{{leftMouseDown, 0}, 2, true, drop},
          {{leftMouseUp, 0}, 2, true, drop},
          {{leftMouseUp, 0}, 2, true, pass}}},
        {"the fingers on the pad at the release do not count",
         {{{leftMouseDown, 0}, 3, true, drop}, {{leftMouseUp, 0}, 0, false, drop}}},
        {"fingers that come after the press do not make it a click",
         {{{leftMouseDown, 0}, 1, true, pass}, {{leftMouseUp, 0}, 2, true, pass}}},
        {"a press that is not consumed keeps its release",
         {{{leftMouseDown, 0}, 2, false, pass}, {{leftMouseUp, 0}, 2, true, pass}}},
        {"a release passes while another button awaits its own",
         {{{leftMouseDown, 0}, 2, true, drop},
          {{rightMouseDown, 1}, 1, true, pass},
          {{rightMouseUp, 1}, 1, true, pass},
          {{leftMouseUp, 0}, 0, true, drop}}},
        {"two dropped buttons each lose their release, in any order",
         {{{leftMouseDown, 0}, 2, true, drop},
          {{rightMouseDown, 1}, 2, true, drop},
          {{leftMouseUp, 0}, 0, true, drop},
          {{rightMouseUp, 1}, 0, true, drop},
          {{rightMouseUp, 1}, 0, true, pass}}},
        {"a release is matched to its press by button number",
         {{{rightMouseDown, 7}, 2, true, drop}, {{leftMouseUp, 7}, 0, true, drop}}},
        {"negative and 64-bit button numbers are supported",
         {{{leftMouseDown, -1}, 2, true, drop},
          {{leftMouseDown, std::int64_t{1} << 40}, 2, true, drop},
          {{leftMouseUp, 0}, 2, true, pass},
          {{leftMouseUp, std::int64_t{1} << 40}, 0, true, drop},
          {{leftMouseUp, -1}, 0, true, drop}}},
        {"the next click is decided independently",
         {{{leftMouseDown, 0}, 2, true, drop},
          {{leftMouseUp, 0}, 2, true, drop},
          {{leftMouseDown, 0}, 1, true, pass},
          {{leftMouseUp, 0}, 1, true, pass}}},
        {"a passing press keeps its release even if an earlier release was lost",
         {{{leftMouseDown, 0}, 2, true, drop},
          {{tapDisabledByTimeout, 0}, 2, true, pass},
          {{leftMouseDown, 0}, 1, true, pass},
          {{leftMouseUp, 0}, 1, true, pass}}},
        {"a press of another button does not restore a dropped release",
         {{{leftMouseDown, 0}, 2, true, drop},
          {{rightMouseDown, 1}, 1, true, pass},
          {{leftMouseUp, 0}, 1, true, drop}}},
        {"a time-out between them has no effect",
         {{{leftMouseDown, 0}, 2, true, drop},
          {{tapDisabledByTimeout, 0}, 2, true, pass},
          {{leftMouseUp, 0}, 2, true, drop}}},
    };
    for (const Story& story : stories) {
        SCOPED_TRACE(story.fact);
        monitor = std::make_unique<ClickMonitor>(tap, [this] { return fingerCount; });
        takeClicks();
        monitor->start();
        for (const Step& step : story.steps) {
            fingerCount = step.fingerCount;
            isConsumed = step.isConsumed;
            EXPECT_EQ(tap->offer(step.event), step.expected)
                << "step " << &step - story.steps.data();
        }
    }
}

TEST_F(ClickMonitorTest, ReleaseOfADroppedPressIsDroppedEvenAfterARestart) {
    monitor->start();
    EXPECT_EQ(press(), drop);
    monitor->stop();
    monitor->start();
    EXPECT_EQ(release(), drop);
    EXPECT_EQ(release(), pass);
}

TEST_F(ClickMonitorTest, PressIsOfferedOnlyOnce) {
    monitor->start();
    press();
    release();
    EXPECT_THAT(offered, ElementsAre(twoFingerClick));
}

} // namespace
} // namespace glidemap
