// Tests all parts together: a window on an X server, its window manager, its desktop entry, and the
// application that the workspace reports.
#include "desktops/application_folder.h"
#include "desktops/launch_reports.h"
#include "desktops/scoped_environment.h"
#include "desktops/x_client.h"
#include "desktops/x_server.h"
#include "fake_application_service.h"
#include "platform/linux/applications/linux_workspace.h"
#include "platform/linux/windows/x11/x11_backend.h"

#include <gmock/gmock.h>
#include <unistd.h>
#include <xcb/xcb.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace glidemap {
namespace {

using namespace test;
using testing::ElementsAre;

std::string text(const Application& application) {
    return application.bundleID.value_or("-") + " (" + application.name.value_or("-") + ")";
}

// Sets the language before the other base class and the members are constructed, because their
// threads must not read the environment while it changes.
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

TEST_F(X11WorkspaceTest, MatchesWindowsToInstalledApplications) {
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

TEST_F(X11WorkspaceTest, FocusChangeNeverLeavesFrontmostApplicationEmpty) {
    follow(std::chrono::hours(1)); // longer than a window manager takes on a busy machine
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

// Receives the messages that launchers broadcast.
class LaunchMessages {
public:
    explicit LaunchMessages(const std::string& display)
        : connection(xcb_connect(display.c_str(), nullptr), xcb_disconnect) {
        const xcb_window_t root =
            xcb_setup_roots_iterator(xcb_get_setup(connection.get())).data->root;
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection.get(), root, XCB_CW_EVENT_MASK, &events);
        free(xcb_get_input_focus_reply(connection.get(), xcb_get_input_focus(connection.get()),
                                       nullptr)); // the server has processed the request
    }

    // Joins the pieces of the next message and returns it.
    std::string next() const {
        std::string text;
        while (text.find('\0') == std::string::npos) {
            const std::unique_ptr<xcb_generic_event_t, decltype(&free)> event(
                xcb_wait_for_event(connection.get()), free);
            if (event == nullptr) {
                return "the server has gone";
            }
            if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
                const auto* const message =
                    reinterpret_cast<const xcb_client_message_event_t*>(event.get());
                text.append(reinterpret_cast<const char*>(message->data.data8), 20);
            }
        }
        return text.substr(0, text.find('\0'));
    }

private:
    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> connection;
};

TEST_F(X11WorkspaceTest, AnnouncesTheLaunchOfAnEntryWithStartupNotify) {
    const auto pipe = folder.path() / "announced";
    LaunchReports reports{pipe};
    const LaunchMessages messages(server->display());
    const std::string script =
        folder.script("noticing", "echo $DESKTOP_STARTUP_ID: >" + pipe.string() + "\n").string();
    const auto launch = [&](const std::string& keys) {
        folder.install("noticing", "Name=No \"ticing\"\nExec=" + script + "\n" + keys);
        std::optional<std::string> url;
        const auto deadline = std::chrono::steady_clock::now() + patience;
        while (!(url = workspace->urlForApplication("noticing")) &&
               std::chrono::steady_clock::now() < deadline) {
            std::this_thread::yield();
        }
        workspace->openApplication(url.value_or(""));
        return reports.nextLine();
    };
    EXPECT_EQ(launch(""), ":");
    const std::string line = launch("StartupNotify=true\nStartupWMClass=Noticing\n");
    const std::string identifier = line.substr(0, line.size() - 1);
    EXPECT_THAT(identifier, testing::MatchesRegex("glidemap-" + std::to_string(getpid()) +
                                                  "-1_TIME[1-9][0-9]*"));
    EXPECT_EQ(messages.next(), "new: ID=\"" + identifier +
                                   "\" NAME=\"No \\\"ticing\\\"\" SCREEN=\"0\" "
                                   "WMCLASS=\"Noticing\" APPLICATION_ID=\"noticing.desktop\"");
}

} // namespace
} // namespace glidemap
