#include "desktops/application_folder.h"
#include "desktops/launch_reports.h"
#include "fake_application_service.h"
#include "platform/linux/applications/linux_workspace.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <chrono>
#include <string>
#include <thread>

namespace glidemap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

WindowIdentity window(const std::string& appID) {
    return {appID, "", "", std::nullopt};
}

// Reports the test's windows, or refuses to start.
class FakeWindowBackend : public WindowBackend {
public:
    FakeWindowBackend(std::vector<std::string>& reported, std::string called, bool knowsDesktop)
        : log(reported), name(std::move(called)), knows(knowsDesktop) {}
    ~FakeWindowBackend() override { log.push_back(name + " goes"); }

    bool start(WindowListener& listener) override {
        log.push_back(name + " starts");
        if (!knows)
            return false;
        listener.windowsChanged({window("editor"), window("my-tool")});
        listener.activeWindowChanged(window("editor"));
        return true;
    }

    // Activates only the editor's window.
    void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) override {
        const bool has = isChosen(window("editor"));
        log.push_back(name + (has ? " brings forward" : " has no window"));
        if (!has)
            otherwise();
    }

private:
    std::vector<std::string>& log;
    std::string name;
    bool knows;
};

class LinuxWorkspaceTest : public testing::Test {
protected:
    LinuxWorkspaceTest() {
        sessionBus();
        folder.clear();
        editor = folder.install("editor", "Name=The Editor\nExec=sh\n");
    }

    WindowBackendFactory backend(const std::string& name, bool knowsDesktop) {
        return [this, name, knowsDesktop] {
            return std::make_unique<FakeWindowBackend>(log, name, knowsDesktop);
        };
    }

    // GIO notices new entries with a delay.
    static void expectURL(const Workspace& workspace, const std::string& bundleID,
                          const std::string& expected) {
        const auto deadline = std::chrono::steady_clock::now() + test::patience;
        while (workspace.urlForApplication(bundleID) != expected &&
               std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
        EXPECT_EQ(workspace.urlForApplication(bundleID), expected);
    }

    ApplicationFolder& folder = ApplicationFolder::instance();
    std::filesystem::path editor;
    std::vector<std::string> log;
    DesktopThread thread;
};

TEST_F(LinuxWorkspaceTest, UsesTheFirstBackendThatSupportsTheDesktop) {
    {
        LinuxWorkspace workspace(
            thread, {backend("first", false), backend("second", true), backend("third", true)}, {});
        thread.call([] {});
        EXPECT_THAT(log, ElementsAre("first starts", "first goes", "second starts"));
        EXPECT_EQ(workspace.frontmostApplication().bundleID, "editor");
        const auto running = workspace.runningApplications();
        ASSERT_EQ(running.size(), 2U);
        EXPECT_EQ(running[1], (Application{"my-tool", "My Tool"}));
    }
    EXPECT_THAT(log, ElementsAre("first starts", "first goes", "second starts", "second goes"));
}

TEST_F(LinuxWorkspaceTest, RaisesAnApplicationThatHasAWindowInsteadOfLaunchingIt) {
    const auto pipe = folder.path() / "reports";
    LaunchReports reports{pipe};
    folder.install("editor",
                   "Name=The Editor\nExec=" +
                       folder.script("editor", "echo editor >" + pipe.string() + "\n").string() +
                       "\n");
    const auto other = folder.install(
        "other", "Name=Other\nExec=" +
                     folder.script("other", "echo other >" + pipe.string() + "\n").string() + "\n");
    LinuxWorkspace workspace(thread, {backend("only", true)}, {});
    workspace.openApplication("file://" + editor.string());
    workspace.openApplication("file://" + other.string());
    EXPECT_EQ(reports.nextLine(), "other");
    thread.call([] {});
    EXPECT_THAT(log, ElementsAre("only starts", "only brings forward", "only has no window"));
}

// Offers windows with different properties to the workspace, and records which of them it chooses.
class ChoosingBackend : public FakeWindowBackend {
public:
    explicit ChoosingBackend(std::vector<std::string>& record)
        : FakeWindowBackend(record, "only", true), chosen(record) {}

    void bringForward(const WindowChoice& isChosen, std::function<void()> /*otherwise*/) override {
        const WindowIdentity windows[] = {
            {"other", "", "other", std::nullopt},
            {"other", "", "of another process", getppid()},
            {"org.glidemap.Glidemap", "", "of our name and another process", getppid()},
            {"org.glidemap.Glidemap", "", "of our name", std::nullopt},
            {"any", "", "of our process", getpid()}};
        for (const WindowIdentity& each : windows) {
            if (isChosen(each)) {
                chosen.push_back(each.title);
            }
        }
    }

private:
    std::vector<std::string>& chosen;
};

TEST_F(LinuxWorkspaceTest, FindsGlidemapsOwnWindowByProcessOrName) {
    LinuxWorkspace workspace(thread, {[this] {
                                 return std::make_unique<ChoosingBackend>(log);
                             }},
                             {});
    workspace.bringOwnWindowForward();
    thread.call([] {});
    EXPECT_THAT(log, ElementsAre("only starts", "of our name", "of our process"));
}

TEST_F(LinuxWorkspaceTest, NoApplicationIsFrontmostWithoutADesktop) {
    LinuxWorkspace workspace(thread, {backend("only", false)}, {});
    thread.call([] {});
    EXPECT_THAT(log, ElementsAre("only starts", "only goes"));
    EXPECT_EQ(workspace.frontmostApplication(), Application{});
    EXPECT_THAT(workspace.runningApplications(), IsEmpty());
    const LinuxWorkspace none(thread, {}, {});
    EXPECT_EQ(none.frontmostApplication(), Application{});
}

TEST_F(LinuxWorkspaceTest, ReturnsTheEntryFileOfAnInstalledApplication) {
    const LinuxWorkspace workspace(thread, {}, {});
    folder.install("hidden", "Name=Hidden\nExec=sh\nHidden=true\n");
    folder.install("with space", "Name=Space\nExec=sh\n");
    expectURL(workspace, "with space",
              "file://" + (folder.path() / "user/applications/with%20space.desktop").string());
    expectURL(workspace, "editor", "file://" + editor.string());
    EXPECT_EQ(workspace.urlForApplication("Editor"), std::nullopt);
    EXPECT_EQ(workspace.urlForApplication("hidden"), std::nullopt);
    EXPECT_EQ(workspace.urlForApplication("nobody"), std::nullopt);
    EXPECT_EQ(workspace.urlForApplication(""), std::nullopt);
    EXPECT_EQ(workspace.urlForApplication("../applications/editor"), std::nullopt);
}

TEST_F(LinuxWorkspaceTest, ReturnsTheIconNamedInTheEntry) {
    const LinuxWorkspace workspace(thread, {}, {});
    folder.install("drawn", "Name=Drawn\nExec=sh\nIcon=org.example.Drawn\n");
    folder.install("in a file", "Name=File\nExec=sh\nIcon=/opt/it.png\n");
    expectURL(workspace, "in a file",
              "file://" + (folder.path() / "user/applications/in%20a%20file.desktop").string());
    EXPECT_EQ(workspace.iconOfApplication("drawn"), "org.example.Drawn");
    EXPECT_EQ(workspace.iconOfApplication("in a file"), "/opt/it.png");
    EXPECT_EQ(workspace.iconOfApplication("editor"), std::nullopt) << "it names none";
    EXPECT_EQ(workspace.iconOfApplication("missing"), std::nullopt);
    EXPECT_EQ(workspace.iconOfApplication("../applications/drawn"), std::nullopt);
}

TEST_F(LinuxWorkspaceTest, OpensAnApplicationByItsURL) {
    LaunchReports reports(folder.path() / "reports");
    const auto script =
        folder.script("tool", "echo opened >" + (folder.path() / "reports").string());
    folder.install("tool", "Name=Tool\nExec=" + script.string() + "\n");
    LinuxWorkspace workspace(thread, {}, {});
    const std::string url = "file://" + (folder.path() / "user/applications/tool.desktop").string();
    expectURL(workspace, "tool", url);
    workspace.openApplication(url);
    EXPECT_EQ(reports.nextLine(), "opened");
}

TEST_F(LinuxWorkspaceTest, MissionControlOpensTheDesktopOverview) {
    int shown = 0;
    LinuxWorkspace workspace(thread, {}, {.missionControl = [&shown] {
                                 ++shown;
                             }});
    workspace.openMissionControl();
    EXPECT_EQ(shown, 1);
    LinuxWorkspace without(thread, {}, {});
    without.openMissionControl();
}

TEST_F(LinuxWorkspaceTest, OpeningAccessSettingsShowsThePrompt) {
    int asked = 0;
    LinuxWorkspace workspace(thread, {}, {.accessibilitySettings = [&asked] {
                                 ++asked;
                             }});
    workspace.openAccessibilitySettings();
    EXPECT_EQ(asked, 1);
    LinuxWorkspace without(thread, {}, {});
    without.openAccessibilitySettings();
}

} // namespace
} // namespace glidemap
