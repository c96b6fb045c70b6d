// Tests all parts together: a window on an X server, its window manager, its desktop entry, and the
// application that the workspace reports.
#include "application_folder.h"
#include "desktops/scoped_environment.h"
#include "linux_windows/x11/x_client.h"
#include "linux_windows/x11/x_server.h"
#include "platform/linux/applications/linux_workspace.h"
#include "platform/linux/windows/x11_backend.h"
#include "service_double.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

namespace glidemap {
namespace {

using namespace desktops;
using testing::ElementsAre;

std::string text(const Application& application) {
    return application.bundleID.value_or("-") + " (" + application.name.value_or("-") + ")";
}

// Constructed first, so that no thread reads the environment during the change.
struct InChinese {
    const ScopedEnvironment language{
        {{"LANGUAGE", "zh_CN"}, {"LC_ALL", "zh_CN.UTF-8"}, {"LANG", "zh_CN.UTF-8"}}};
};

class X11WorkspaceTest : private InChinese, public testing::Test {
protected:
    void SetUp() override {
        if (const std::string reason = XServer::whyNot(); !reason.empty())
            GTEST_SKIP() << reason;
        sessionBus();
        folder.clear();
        folder.install("org.example.Files", "Name=Files\nName[zh_CN]=文件\nExec=sh\n"
                                            "StartupWMClass=example-files\n");
        folder.install("editor", "Name=Editor\nName[zh_CN]=编辑器\nExec=sh\n");
        server = std::make_unique<XServer>();
        server->startWindowManager();
        follow(LinuxWorkspace::usualPatience);
    }

    void follow(std::chrono::milliseconds patienceWithNone) {
        workspace = std::make_unique<LinuxWorkspace>(
            thread, std::vector<WindowBackendFactory>{[this] {
                return std::make_unique<X11Backend>(thread, server->display());
            }},
            LinuxWorkspace::Panels(), patienceWithNone);
    }

    std::unique_ptr<XClient> window(const std::string& instance, const std::string& name) const {
        auto client = std::make_unique<XClient>(*server);
        client->describe(instance, name);
        client->map();
        return client;
    }

    void expectFrontmost(const std::string& expected) const {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (text(workspace->frontmostApplication()) != expected &&
               std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
        EXPECT_EQ(text(workspace->frontmostApplication()), expected);
    }

    void expectRunning(const std::vector<std::string>& expected) const {
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (running() != expected && std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
        EXPECT_EQ(running(), expected);
    }

    std::vector<std::string> running() const {
        std::vector<std::string> all;
        for (const Application& application : workspace->runningApplications())
            all.push_back(text(application));
        return all;
    }

    ApplicationFolder& folder = ApplicationFolder::instance();
    std::unique_ptr<XServer> server;
    DesktopThread thread;
    std::unique_ptr<LinuxWorkspace> workspace;
};

TEST_F(X11WorkspaceTest, WindowsMapToInstalledApplications) {
    expectFrontmost("- (-)");
    const auto files = window("files", "example-files");
    expectFrontmost("org.example.Files (文件)");
    const auto editor = window("editor", "Editor");
    expectFrontmost("editor (编辑器)");
    const auto tool = window("my-tool", "my-tool");
    expectFrontmost("my-tool (My Tool)");
    const auto second = window("files", "example-files");
    expectFrontmost("org.example.Files (文件)");
    expectRunning({"org.example.Files (文件)", "editor (编辑器)", "my-tool (My Tool)"});

    editor->activate();
    expectFrontmost("editor (编辑器)");
    editor->destroy();
    expectRunning({"org.example.Files (文件)", "my-tool (My Tool)"});
    for (const auto* client : {&files, &tool, &second})
        (*client)->kill();
    expectFrontmost("- (-)");
    expectRunning({});
}

TEST_F(X11WorkspaceTest, FocusChangeNeverReportsNoApplication) {
    follow(std::chrono::hours(1)); // longer than any window manager on a busy machine
    const auto files = window("files", "example-files");
    const auto editor = window("editor", "Editor");
    expectFrontmost("editor (编辑器)");
    std::atomic<bool> over = false;
    std::atomic<int> gaps = 0;
    std::thread reader([&] {
        while (!over) {
            if (!workspace->frontmostApplication().bundleID)
                ++gaps;
        }
    });
    for (int round = 0; round < 20; ++round) {
        files->activate();
        expectFrontmost("org.example.Files (文件)");
        editor->activate();
        expectFrontmost("editor (编辑器)");
    }
    over = true;
    reader.join();
    EXPECT_EQ(gaps, 0);
}

} // namespace
} // namespace glidemap
