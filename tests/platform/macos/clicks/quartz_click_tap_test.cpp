#include "dispatch/click_monitor.h"
#include "macos_test.h"
#include "platform/macos/clicks/quartz_click_tap.h"

#include <memory>
#include <utility>

namespace glidemap {
namespace {

using test::Passage;
using test::play;
using test::playNotice;
using test::playTo;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int64_t left = 0;
constexpr std::int64_t right = 1;

class QuartzClickTapTest : public MacosTest {
protected:
    // Returns a tap whose callback records its events and always returns this verdict.
    std::unique_ptr<QuartzClickTap> tapAnswering(ClickTap::Verdict verdict) {
        auto tap = std::make_unique<QuartzClickTap>();
        EXPECT_TRUE(tap->create([this, verdict](const ClickEvent& event) {
            asked.push_back(event);
            return verdict;
        }));
        journal();
        return tap;
    }

    std::vector<ClickEvent> asked;
};

TEST_F(QuartzClickTapTest, InstallsTheTapAheadOfOtherSessionTapsOnTheMainRunLoop) {
    QuartzClickTap tap;
    EXPECT_TRUE(tap.create([](const ClickEvent&) { return ClickTap::Verdict::pass; }));
    tap.setEnabled(true);
    EXPECT_THAT(journal(),
                ElementsAre("CGEventTapCreate 1 0 0 0x1e",                //
                            "CFMachPortCreateRunLoopSource CFMachPort 0", //
                            "CFRunLoopAddSource main run loop CFRunLoopSource common modes",
                            "CGEventTapEnable CFMachPort true"));
}

TEST_F(QuartzClickTapTest, CreatesNoTapWithoutPermission) {
    test::quartz().permits = false;
    QuartzClickTap tap;
    EXPECT_FALSE(tap.create([](const ClickEvent&) { return ClickTap::Verdict::pass; }));
    tap.setEnabled(true);
    tap.remove();
    EXPECT_THAT(journal(), ElementsAre("CGEventTapCreate 1 0 0 0x1e"));
}

TEST_F(QuartzClickTapTest, ReleasesTheEventTapIfItsRunLoopSourceCannotBeCreated) {
    test::coreFoundation().makesRunLoopSources = false;
    QuartzClickTap tap;
    EXPECT_FALSE(tap.create([](const ClickEvent&) { return ClickTap::Verdict::pass; }));
    EXPECT_THAT(test::livingObjects(), IsEmpty());
}

TEST_F(QuartzClickTapTest, ReportsEachEventWithItsButton) {
    const auto tap = tapAnswering(ClickTap::Verdict::pass);
    EXPECT_EQ(play(kCGEventLeftMouseDown, left), Passage::passed);
    EXPECT_EQ(play(kCGEventLeftMouseUp, left), Passage::passed);
    EXPECT_EQ(play(kCGEventRightMouseDown, right), Passage::passed);
    EXPECT_EQ(play(kCGEventRightMouseUp, right), Passage::passed);
    EXPECT_THAT(asked, ElementsAre(ClickEvent{ClickEventType::leftMouseDown, left},
                                   ClickEvent{ClickEventType::leftMouseUp, left},
                                   ClickEvent{ClickEventType::rightMouseDown, right},
                                   ClickEvent{ClickEventType::rightMouseUp, right}));
}

TEST_F(QuartzClickTapTest, SwallowsEventsThatTheCallbackDrops) {
    const auto tap = tapAnswering(ClickTap::Verdict::drop);
    EXPECT_EQ(play(kCGEventLeftMouseDown, left), Passage::dropped);
    EXPECT_EQ(play(kCGEventRightMouseUp, right), Passage::dropped);
}

TEST_F(QuartzClickTapTest, ReadsTheButtonOnlyFromClickEvents) {
    const auto tap = tapAnswering(ClickTap::Verdict::pass);
    playNotice(kCGEventTapDisabledByTimeout);
    playNotice(kCGEventTapDisabledByUserInput);
    EXPECT_EQ(play(kCGEventMouseMoved, left), Passage::passed);
    EXPECT_THAT(asked, ElementsAre(ClickEvent{ClickEventType::tapDisabledByTimeout, 0},
                                   ClickEvent{ClickEventType::tapDisabledByUserInput, 0},
                                   ClickEvent{ClickEventType::other, 0}));
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(QuartzClickTapTest, PassesEventsIfTheCallbackGetsNoUserData) {
    const auto tap = tapAnswering(ClickTap::Verdict::drop);
    EXPECT_EQ(playTo(nullptr, kCGEventLeftMouseDown, left), Passage::passed);
    EXPECT_THAT(asked, IsEmpty());
}

TEST_F(QuartzClickTapTest, RemovalDetachesTheTapFromTheRunLoopAndReleasesIt) {
    const auto tap = tapAnswering(ClickTap::Verdict::pass);
    tap->setEnabled(false);
    tap->remove();
    EXPECT_THAT(journal(),
                ElementsAre("CGEventTapEnable CFMachPort false",
                            "CFRunLoopRemoveSource main run loop CFRunLoopSource common modes",
                            "CFMachPortInvalidate CFMachPort"));
    EXPECT_THAT(test::livingObjects(), IsEmpty());
    tap->remove();
    EXPECT_THAT(journal(), IsEmpty());
}

TEST_F(QuartzClickTapTest, DestructionDisablesAndInvalidatesTheTap) {
    tapAnswering(ClickTap::Verdict::pass).reset();
    EXPECT_THAT(journal(),
                ElementsAre("CGEventTapEnable CFMachPort false",
                            "CFRunLoopRemoveSource main run loop CFRunLoopSource common modes",
                            "CFMachPortInvalidate CFMachPort"));
}

TEST_F(QuartzClickTapTest, MonitorEnablesTheTapAgainAfterEitherDisabledNotification) {
    ClickMonitor monitor(std::make_shared<QuartzClickTap>(), [] { return 2; });
    monitor.start();
    for (const CGEventType notice :
         {kCGEventTapDisabledByTimeout, kCGEventTapDisabledByUserInput}) {
        journal();
        playNotice(notice);
        EXPECT_THAT(journal(), ElementsAre("CGEventTapEnable CFMachPort true"));
    }
}

TEST_F(QuartzClickTapTest, MonitorSwallowsAPressAndTheReleaseOfTheSameButton) {
    ClickMonitor monitor(std::make_shared<QuartzClickTap>(), [] { return 2; });
    monitor.onClickGesture = [](GestureType gesture) {
        return gesture == GestureType::twoFingerClick;
    };
    monitor.start();
    EXPECT_EQ(play(kCGEventRightMouseDown, right), Passage::dropped);
    EXPECT_EQ(play(kCGEventLeftMouseUp, left), Passage::passed);
    EXPECT_EQ(play(kCGEventRightMouseUp, right), Passage::dropped);
    EXPECT_EQ(play(kCGEventRightMouseUp, right), Passage::passed);
}

} // namespace
} // namespace glidemap
