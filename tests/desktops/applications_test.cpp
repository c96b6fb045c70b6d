// Tests on each desktop: the frontmost application, the running applications, and launching an
// application.
#include "desktop_test_base.h"
#include "kit/leash.h"
#include "kit/temporary_folder.h"
#include "seen_workspace.h"

#include <gmock/gmock.h>

namespace glidemap::test {
namespace {

class ApplicationsTest : public DesktopTest {
protected:
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

TEST_P(ApplicationsTest, LaunchedApplicationRunsAndComesForward) {
    const Leash leash(folder.path() / "leash");
    const auto script =
        folder.script("launch", "exec " + desktop->windowProgram() + " launched Title <" +
                                    leash.path.string() + " >/dev/null\n");
    folder.install("launched", "Name=Launched\nExec=" + script.string() + "\n");
    SeenWorkspace seen;
    const auto first = open("first");
    seen.expectFrontmost("first");
    std::optional<std::string> url;
    ASSERT_TRUE(waitUntil([&] {
        url = seen.port().urlForApplication("launched");
        return url.has_value();
    }));
    seen.port().openApplication(*url);
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
    std::optional<std::string> url;
    ASSERT_TRUE(waitUntil([&] {
        url = seen.port().urlForApplication("launched");
        return url.has_value();
    }));
    seen.port().openApplication(*url);
    seen.expectFrontmost("launched");
    const std::string given = contentOf(token);
    switch (GetParam().token) {
    case LaunchTokenKind::startupID:
        EXPECT_THAT(given, testing::MatchesRegex("glidemap-.*_TIME[1-9][0-9]*:\n"));
        break;
    case LaunchTokenKind::token:
        EXPECT_THAT(given, testing::MatchesRegex("(.+):.+\n"));
        break;
    case LaunchTokenKind::none:
        EXPECT_EQ(given, ":\n");
        break;
    }
    std::filesystem::remove(token);
}

INSTANTIATE_TEST_SUITE_P(On, ApplicationsTest, testing::ValuesIn(allDesktops()), nameOf);

} // namespace
} // namespace glidemap::test
