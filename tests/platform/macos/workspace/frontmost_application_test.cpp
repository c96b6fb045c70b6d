#include "cocoa_test.h"
#include "platform/macos/workspace/frontmost_application.h"

#include <atomic>
#include <memory>
#include <thread>

namespace glidemap {
namespace {

using test::activate;
using test::RunningApplication;
using testing::ElementsAre;
using testing::IsEmpty;

const RunningApplication notes{"com.example.notes", "Notes"};
const RunningApplication draw{"com.example.draw", "画图"};

class FrontmostApplicationTest : public CocoaTest {};

TEST_F(FrontmostApplicationTest, AddsObserversBeforeReadingTheApplicationOnce) {
    test::workspace().frontmost = notes;
    const FrontmostApplication frontmost;
    EXPECT_EQ(frontmost.current(), (Application{"com.example.notes", "Notes"}));
    EXPECT_THAT(journal(),
                ElementsAre("addObserverForName NSWorkspaceDidActivateApplicationNotification",
                            "addObserverForName NSWorkspaceDidTerminateApplicationNotification",
                            "frontmostApplication"));
}

TEST_F(FrontmostApplicationTest, FollowsEachActivation) {
    const FrontmostApplication frontmost;
    EXPECT_EQ(frontmost.current(), Application());
    journal();
    activate(notes);
    EXPECT_EQ(frontmost.current(), (Application{"com.example.notes", "Notes"}));
    activate(draw);
    EXPECT_EQ(frontmost.current(), (Application{"com.example.draw", "画图"}));
    activate(notes);
    EXPECT_EQ(frontmost.current(), (Application{"com.example.notes", "Notes"}));
    EXPECT_THAT(journal(), IsEmpty()) << "the workspace is not queried again";
}

TEST_F(FrontmostApplicationTest, ReturnsAnApplicationWithoutANameOrAnIdentifier) {
    const FrontmostApplication frontmost;
    activate(RunningApplication{"com.example.nameless", std::nullopt});
    EXPECT_EQ(frontmost.current(), (Application{"com.example.nameless", std::nullopt}));
    activate(RunningApplication{std::nullopt, "Script"});
    EXPECT_EQ(frontmost.current(), (Application{std::nullopt, "Script"}));
    activate(RunningApplication{});
    EXPECT_EQ(frontmost.current(), Application());
}

TEST_F(FrontmostApplicationTest, ActivationWithoutAnApplicationClearsTheApplication) {
    test::workspace().frontmost = notes;
    const FrontmostApplication frontmost;
    test::noticeAnActivationOnly();
    EXPECT_EQ(frontmost.current(), Application());
}

TEST_F(FrontmostApplicationTest, TerminationWithoutAnotherActivationClearsTheApplication) {
    const FrontmostApplication frontmost;
    activate(notes);
    test::workspace().frontmost.reset();
    test::end(notes);
    EXPECT_EQ(frontmost.current(), Application());
}

TEST_F(FrontmostApplicationTest, DropsATerminatedApplicationThatTheWorkspaceStillReports) {
    const FrontmostApplication frontmost;
    activate(notes);
    test::workspace().frontmost->hasEnded = true;
    test::end(notes);
    EXPECT_EQ(frontmost.current(), Application());
}

TEST_F(FrontmostApplicationTest, TerminationMakesTheNextApplicationFrontmost) {
    const FrontmostApplication frontmost;
    activate(notes);
    test::workspace().frontmost = draw;
    test::end(notes);
    EXPECT_EQ(frontmost.current(), (Application{"com.example.draw", "画图"}));
}

TEST_F(FrontmostApplicationTest, TerminationOfAnotherApplicationChangesNothing) {
    const FrontmostApplication frontmost;
    activate(notes);
    journal();
    test::end(draw);
    EXPECT_EQ(frontmost.current(), (Application{"com.example.notes", "Notes"}));
    EXPECT_THAT(journal(), IsEmpty()) << "the workspace is not queried";
}

TEST_F(FrontmostApplicationTest, TerminationOfTheApplicationsSecondProcessChangesNothing) {
    const FrontmostApplication frontmost;
    activate(notes);
    // A second process of the application ends. The first one still runs, so it stays frontmost.
    test::end(notes);
    EXPECT_EQ(frontmost.current(), (Application{"com.example.notes", "Notes"}));
}

TEST_F(FrontmostApplicationTest, IgnoresNotificationsAboutReducedMotion) {
    test::workspace().frontmost = notes;
    const FrontmostApplication frontmost;
    test::workspace().frontmost = draw;
    test::setReducesMotion(true);
    EXPECT_EQ(frontmost.current(), (Application{"com.example.notes", "Notes"}));
}

TEST_F(FrontmostApplicationTest, IgnoresNotificationsAfterDestruction) {
    auto frontmost = std::make_unique<FrontmostApplication>();
    journal();
    frontmost.reset();
    activate(notes);
    test::end(notes);
    EXPECT_THAT(journal(), ElementsAre("removeObserver", "removeObserver"));
}

TEST_F(FrontmostApplicationTest, HandlesANotificationDuringDestruction) {
    auto frontmost = std::make_unique<FrontmostApplication>();
    Application last;
    FrontmostApplication* const going = frontmost.get();
    test::workspace().atRemoval = [&] {
        activate(notes);
        last = going->current();
    };
    frontmost.reset();
    EXPECT_EQ(last, (Application{"com.example.notes", "Notes"}));
}

TEST_F(FrontmostApplicationTest, OtherThreadsReadCompleteApplicationsDuringNotifications) {
    test::workspace().frontmost = notes;
    const FrontmostApplication frontmost;
    std::atomic<int> readings = 0;
    std::atomic<bool> done = false;
    bool allWhole = true;
    std::thread engine([&] {
        while (!done) {
            const Application now = frontmost.current();
            allWhole = allWhole && (now == Application{"com.example.notes", "Notes"} ||
                                    now == Application{"com.example.draw", "画图"});
            ++readings;
        }
    });
    for (int turn = 0; turn < 500 || readings < 500; ++turn) {
        activate(turn % 2 == 0 ? draw : notes);
    }
    done = true;
    engine.join();
    EXPECT_TRUE(allWhole);
}

} // namespace
} // namespace glidemap
