#include "kit/fake_workspace.h"
#include "ui/editor/running_apps.h"

#include <gmock/gmock.h>

#include <QLocale>
#include <string>
#include <vector>

namespace glidemap {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> listed(std::vector<Application> running) {
    test::FakeWorkspace workspace;
    workspace.running = std::move(running);
    std::vector<std::string> lines;
    for (const RunningApp& app : runningApps(workspace)) {
        lines.push_back(app.name + " (" + app.bundleID + ")");
    }
    return lines;
}

TEST(RunningAppsTest, AreSortedByName) {
    EXPECT_THAT(listed({{"c", "Zoo"}, {"a", "Mail"}, {"b", "Archive"}}),
                ElementsAre("Archive (b)", "Mail (a)", "Zoo (c)"));
}

TEST(RunningAppsTest, AreSortedIgnoringCase) {
    EXPECT_THAT(listed({{"1", "beta"}, {"2", "Alpha"}, {"3", "Gamma"}, {"4", "alpine"}}),
                ElementsAre("Alpha (2)", "alpine (4)", "beta (1)", "Gamma (3)"));
}

TEST(RunningAppsTest, NamesThatDifferOnlyInCaseKeepTheWorkspaceOrder) {
    EXPECT_THAT(listed({{"1", "mail"}, {"2", "MAIL"}, {"3", "Mail"}, {"4", "archive"}}),
                ElementsAre("archive (4)", "mail (1)", "MAIL (2)", "Mail (3)"));
    EXPECT_THAT(listed({{"3", "Mail"}, {"2", "MAIL"}, {"1", "mail"}}),
                ElementsAre("Mail (3)", "MAIL (2)", "mail (1)"));
}

TEST(RunningAppsTest, AreSortedInTheUsersLocale) {
    const QLocale before;
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_THAT(listed({{"1", "Zeit"}, {"2", "Öffner"}, {"3", "Ofen"}, {"4", "Pause"}}),
                ElementsAre("Ofen (3)", "Öffner (2)", "Pause (4)", "Zeit (1)"));
    QLocale::setDefault(before);
}

TEST(RunningAppsTest, AppsWithoutIdentifierOrNameAreOmitted) {
    EXPECT_THAT(listed({{std::nullopt, "No identifier"},
                        {"no.name", std::nullopt},
                        {std::nullopt, std::nullopt},
                        {"both", "Both"}}),
                ElementsAre("Both (both)"));
    EXPECT_THAT(listed({}), IsEmpty());
}

TEST(RunningAppsTest, DuplicatesAreKept) {
    EXPECT_THAT(listed({{"a", "App"}, {"a", "App"}}), ElementsAre("App (a)", "App (a)"));
}

TEST(RunningAppsTest, OnlyInstalledRunningAppsAreLaunchable) {
    test::FakeWorkspace workspace;
    workspace.running = {{"mail", "Mail"}, {"XClock", "xclock"}, {"files", "Files"}};
    workspace.urls = {{"mail", "file:///mail"}, {"files", "file:///files"}};
    const auto offered = launchableApps(workspace);
    EXPECT_THAT(offered, ElementsAre(RunningApp{"files", "Files"}, RunningApp{"mail", "Mail"}));
    EXPECT_EQ(runningApps(workspace).size(), 3U);
}

} // namespace

} // namespace glidemap
