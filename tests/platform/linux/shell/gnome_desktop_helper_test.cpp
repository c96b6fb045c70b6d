#include "kit/fake_main_queue.h"
#include "kit/in_environment.h"
#include "platform/linux/shell/gnome_desktop_helper.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace glidemap {
namespace {

using Extension = GnomeExtension::State;
using State = DesktopHelper::State;

class GnomeDesktopHelperTest : public testing::Test {
protected:
    std::unique_ptr<GnomeDesktopHelper> helper() {
        auto made = std::make_unique<GnomeDesktopHelper>(
            GnomeDesktopHelper::Shell{[this] { return answer(); },
                                      [this] {
                                          threads.push_back(std::this_thread::get_id());
                                          return failure;
                                      }},
            queue);
        return made;
    }

    GnomeExtension::Status answer() {
        threads.push_back(std::this_thread::get_id());
        return status;
    }

    // Waits until the helper has processed the shell's reply.
    void waitForReply() const {
        while (!queue->runNext()) {
            std::this_thread::yield();
        }
    }

    std::shared_ptr<test::FakeMainQueue> queue = std::make_shared<test::FakeMainQueue>();
    GnomeExtension::Status status;
    std::optional<std::string> failure;
    std::vector<std::thread::id> threads;
};

TEST_F(GnomeDesktopHelperTest, StateMatchesTheShellsReply) {
    struct Row {
        GnomeExtension::Status status;
        State state;
        std::optional<std::string> error;
    };
    const Row rows[] = {
        {{Extension::noShell, ""}, State::notNeeded, std::nullopt},
        {{Extension::on, ""}, State::notNeeded, std::nullopt},
        {{Extension::missing, ""}, State::missing, std::nullopt},
        {{Extension::off, ""}, State::missing, std::nullopt},
        {{Extension::atNextLogin, ""}, State::atNextLogin, std::nullopt},
        {{Extension::failed, "it is broken"}, State::failed, "it is broken"},
    };
    for (const Row& row : rows) {
        status = row.status;
        const auto made = helper();
        EXPECT_EQ(made->state(), State::notNeeded);
        waitForReply();
        EXPECT_EQ(made->state(), row.state);
        EXPECT_EQ(made->lastError(), row.error);
    }
}

TEST_F(GnomeDesktopHelperTest, InstallReportsInstallingAndThenTheStateFromTheShell) {
    status = {Extension::missing, ""};
    const auto made = helper();
    waitForReply();
    std::vector<State> seen;
    const auto toHelper = made->changes().subscribe({}, [&] { seen.push_back(made->state()); });
    status = {Extension::atNextLogin, ""};
    made->install();
    made->install(); // ignored, because an installation is pending
    waitForReply();
    EXPECT_EQ(seen, (std::vector{State::installing, State::atNextLogin}));
    EXPECT_EQ(queue->waiting(), 0U);
}

TEST_F(GnomeDesktopHelperTest, KeepsTheInstallationErrorUntilTheNextAttemptToInstall) {
    status = {Extension::missing, ""};
    const auto made = helper();
    waitForReply();
    failure = "no space left";
    made->install();
    waitForReply();
    EXPECT_EQ(made->state(), State::failed);
    EXPECT_EQ(made->lastError(), "no space left");
    failure = std::nullopt;
    status = {Extension::on, ""};
    made->install();
    EXPECT_EQ(made->lastError(), std::nullopt);
    waitForReply();
    EXPECT_EQ(made->state(), State::notNeeded);
}

TEST_F(GnomeDesktopHelperTest, MainThreadNeverWaitsForTheShell) {
    const auto made = helper();
    waitForReply();
    made->install();
    waitForReply();
    EXPECT_EQ(threads.size(), 3U);
    for (const auto thread : threads) {
        EXPECT_NE(thread, std::this_thread::get_id());
    }
}

TEST_F(GnomeDesktopHelperTest, DropsAReplyThatArrivesAfterDestruction) {
    status = {Extension::missing, ""};
    helper().reset();
    ASSERT_EQ(queue->waiting(), 1U);
    queue->runAll();
}

TEST(GnomeDesktopHelperDetection, HelperExistsOnlyForGNOMEOnWayland) {
    struct Row {
        const char* names;
        const char* wayland;
        bool isThere;
    };
    const Row rows[] = {
        {"GNOME", "wayland-0", true},
        {"ubuntu:GNOME", "wayland-0", true},
        {"GNOME", nullptr, false},
        {"KDE", "wayland-0", false},
        {"GNOME-Flashback:GNOMEish", "wayland-0", false},
        {nullptr, "wayland-0", false},
    };
    const test::InEnvironment noBus("DBUS_SESSION_BUS_ADDRESS", "unix:path=/nowhere");
    for (const Row& row : rows) {
        const test::InEnvironment names("XDG_CURRENT_DESKTOP", row.names);
        const test::InEnvironment wayland("WAYLAND_DISPLAY", row.wayland);
        const auto queue = std::make_shared<test::FakeMainQueue>();
        EXPECT_EQ(GnomeDesktopHelper::ofThisSession(queue) != nullptr, row.isThere);
    }
}

} // namespace
} // namespace glidemap
