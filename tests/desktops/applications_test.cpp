// Tests on each desktop: the frontmost application, the running applications, and launching an
// application.
#include "desktop_test_base.h"
#include "desktops/fake_service.h"
#include "kit/leash.h"
#include "kit/temporary_folder.h"
#include "seen_workspace.h"

#include <gmock/gmock.h>

#include <optional>
#include <regex>
#include <string>

namespace glidemap::test {
namespace {

class ApplicationsTest : public DesktopTest {
protected:
    static void launch(SeenWorkspace& seen, const std::string& application) {
        std::optional<std::string> url;
        ASSERT_TRUE(waitUntil([&] {
            url = seen.port().urlForApplication(application);
            return url.has_value();
        }));
        seen.port().openApplication(*url);
    }

    // Waits for a call with an activation token, and returns the token.
    static std::string tokenIn(const Journal& journal) {
        const std::regex call("Raised\\.Activate.*'activation-token': <'([^']+)'>.*");
        std::smatch match;
        std::string line;
        const auto isCalled = [&] {
            for (const std::string& each : journal.lines()) {
                line = each;
                if (std::regex_match(line, match, call)) {
                    return true;
                }
            }
            return false;
        };
        EXPECT_TRUE(waitUntil(isCalled)) << testing::PrintToString(journal.lines());
        return match.size() > 1 ? match.str(1) : "";
    }

    void expectInFront(const SeenWorkspace& seen, const std::string& opened) const {
        if (GetParam().newWindow == NewWindow::comesForward) {
            seen.expectFrontmost(opened);
        }
    }
};

TEST_P(ApplicationsTest, FrontmostApplicationFollowsOpeningActivatingAndClosing) {
    const SeenWorkspace seen;
    seen.expectRunning({});
    seen.expectFrontmost("none");
    const auto first = open("first");
    seen.expectFrontmost("first");
    seen.expectRunning({"first"});
    const auto second = open("second");
    seen.expectRunning({"first", "second"});
    expectInFront(seen, "second");
    desktop->activate("second");
    seen.expectFrontmost("second");
    desktop->activate("first");
    seen.expectFrontmost("first");
    first->finish();
    seen.expectFrontmost("second");
    seen.expectRunning({"second"});
    second->finish();
    seen.expectFrontmost("none");
    seen.expectRunning({});
}

TEST_P(ApplicationsTest, RunningApplicationsAreKnownOnStart) {
    const auto first = open("first");
    const auto second = open("second");
    const SeenWorkspace seen;
    seen.expectRunning({"first", "second"});
    desktop->activate("first");
    seen.expectFrontmost("first");
}

// The window's app ID does not match the entry, so only the program itself can bring its window
// forward. It needs the token for that. This test must run before those that launch a process: GIO
// keeps one connection to a bus, and a launch may leave an unfinished call to the first test's bus
// on that connection.
TEST_P(ApplicationsTest, ApplicationActivatedOverTheBusComesForwardWithItsToken) {
    if (const std::string why = GetParam().whyTokenBringsNothingForward(); !why.empty()) {
        GTEST_SKIP() << why;
    }
    folder.install("org.example.Raised", "Name=Raised\nDBusActivatable=true\nExec=/bin/false\n");
    Journal journal;
    const FakeService service(
        desktop->bus().address(),
        {.name = "org.example.Raised",
         .path = "/org/example/Raised",
         .interfaces = "<interface name='org.freedesktop.Application'><method name='Activate'>"
                       "<arg type='a{sv}' direction='in'/></method></interface>"},
        journal);
    desktop->allowActivation();
    SeenWorkspace seen;
    const auto raised = open("raised-window");
    const auto other = open("other");
    seen.expectRunning({"other", "raised-window"});
    desktop->activate("other");
    seen.expectFrontmost("other");
    launch(seen, "org.example.Raised");
    raised->writeLine("activate " + tokenIn(journal));
    EXPECT_EQ(raised->nextLine(), "activated");
    seen.expectFrontmost("raised-window");
}

TEST_P(ApplicationsTest, LaunchedApplicationRunsAndComesForward) {
    const Leash leash(folder.path() / "leash");
    const auto script =
        folder.script("launch", "exec " + desktop->windowProgram() + " launched Title <" +
                                    leash.path.string() + " >/dev/null\n");
    folder.install("launched", "Name=Launched\nExec=" + script.string() + "\n");
    SeenWorkspace seen;
    const auto first = open("first");
    seen.expectFrontmost("first");
    launch(seen, "launched");
    seen.expectRunning({"first", "launched"});
    expectInFront(seen, "launched");
    desktop->activate("launched");
    seen.expectFrontmost("launched");
}

// Applies only to applications that support startup notification.
TEST_P(ApplicationsTest, LaunchedApplicationReceivesAnActivationToken) {
    const Leash leash(folder.path() / "leash");
    const auto token = folder.path() / "proof";
    const auto script =
        folder.script("launch", "echo \"$DESKTOP_STARTUP_ID:$XDG_ACTIVATION_TOKEN\" >" +
                                    token.string() + "\nexec " + desktop->windowProgram() +
                                    " launched Title <" + leash.path.string() + " >/dev/null\n");
    folder.install("launched", "Name=Launched\nStartupNotify=true\nExec=" + script.string() + "\n");
    SeenWorkspace seen;
    const auto first = open("first");
    const auto second = open("second");
    seen.expectRunning({"first", "second"});
    desktop->activate("first");
    seen.expectFrontmost("first");
    launch(seen, "launched");
    seen.expectFrontmost("launched");
    const std::string given = contentOf(token);
    switch (GetParam().token) {
    case LaunchTokenKind::startupID:
        EXPECT_THAT(given, testing::MatchesRegex("glidemap-.*_TIME[1-9][0-9]*:\n"));
        break;
    case LaunchTokenKind::activationToken:
        EXPECT_THAT(given, testing::MatchesRegex(":[^:]+\n"));
        break;
    case LaunchTokenKind::both:
        ASSERT_THAT(given, testing::MatchesRegex("[^:]+:[^:]+\n"));
        EXPECT_EQ(given.substr(0, given.find(':')) + "\n", given.substr(given.find(':') + 1));
        break;
    }
    std::filesystem::remove(token);
}

INSTANTIATE_TEST_SUITE_P(On, ApplicationsTest, testing::ValuesIn(allDesktops()), nameOf);

} // namespace
} // namespace glidemap::test
