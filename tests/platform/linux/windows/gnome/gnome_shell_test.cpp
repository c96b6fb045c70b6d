#include "desktops/fake_window_listener.h"
#include "desktops/gnome_shell.h"
#include "desktops/listening.h"
#include "desktops/scoped_environment.h"
#include "desktops/window.h"
#include "platform/linux/windows/gnome/gnome_extension.h"
#include "platform/linux/windows/gnome/gnome_window_backend.h"

#include <gmock/gmock.h>

#include <array>
#include <cstdio>
#include <ostream>
#include <string>

namespace glidemap {

void PrintTo(const GnomeExtension::Status& status, std::ostream* out) {
    *out << "{state " << static_cast<int>(status.state) << ", \"" << status.error << "\"}";
}

namespace {

using Listening = test::Listening<GnomeWindowBackend>;
using test::FakeWindowListener;
using test::GnomeShell;
using test::ScopedEnvironment;
using test::Window;
using State = GnomeExtension::State;

// Queries the extension as another program on the session bus, and expects that access is denied.
void expectThatOtherProgramsAreDenied(const GnomeShell& shell) {
    const ScopedEnvironment here(shell.environment());
    for (const char* const method : {"GetWindows", "BringForward '[]'", "TokenForLaunch ''"}) {
        const std::string command =
            "gdbus call --session --dest org.gnome.Shell --object-path /org/glidemap/Windows "
            "--method org.glidemap.Windows." +
            std::string(method) + " 2>&1";
        FILE* const caller = popen(command.c_str(), "r");
        ASSERT_NE(caller, nullptr);
        std::array<char, 4096> buffer{};
        const std::size_t size = fread(buffer.data(), 1, buffer.size(), caller);
        EXPECT_NE(pclose(caller), 0);
        EXPECT_THAT(std::string(buffer.data(), size), testing::HasSubstr("AccessDenied"));
    }
}

// One test covers all steps, because a process loads the shell's settings only once, and a shell
// starts slowly.
TEST(GnomeShellTest, InstalledExtensionReportsWindowsAfterTheNextLogin) {
    if (const auto missing = GnomeShell::missing()) {
        GTEST_SKIP() << "no " << *missing << " is installed";
    }
    GnomeShell shell;
    const ScopedEnvironment here(shell.environment());
    const GnomeExtension extension(GLIDEMAP_GNOME_EXTENSION_FORMS);
    FakeWindowListener reported;
    ASSERT_EQ(extension.status(), (GnomeExtension::Status{State::noShell, ""}));

    shell.start();
    const Listening listening(reported);
    ASSERT_TRUE(listening.started);
    reported.expectReported({"windows:", "active: none"});
    ASSERT_EQ(extension.status(), (GnomeExtension::Status{State::missing, ""}));
    ASSERT_EQ(extension.install(), std::nullopt);
    ASSERT_EQ(extension.status(), (GnomeExtension::Status{State::atNextLogin, ""}));
    {
        Window unseen = Window(shell.environment(), "unseen", "Title");
        unseen.close();
        reported.expectReported({});
    }

    shell.kill();
    shell.start();
    ASSERT_EQ(extension.status(), (GnomeExtension::Status{State::on, ""}));
    Window first = Window(shell.environment(), "first", "Title");
    reported.expectInTheEnd("windows: first", "active: first");
    Window second = Window(shell.environment(), "org.example.Second", "A text — Second");
    // The shell does not focus the second window, because the user has not opened it.
    reported.expectInTheEnd("windows: first, org.example.Second", "active: first");
    EXPECT_THAT(reported.windows(),
                testing::ElementsAre(WindowIdentity{"first", "first", "", first.process()},
                                     WindowIdentity{"org.example.Second", "org.example.Second", "",
                                                    second.process()}));
    expectThatOtherProgramsAreDenied(shell);
    first.close();
    reported.expectInTheEnd("windows: org.example.Second", "active: org.example.Second");

    shell.disableExtension(GnomeExtension::uuid);
    reported.expectReported({"windows:", "active: none"});
    ASSERT_EQ(extension.status(), (GnomeExtension::Status{State::off, ""}));
    ASSERT_EQ(extension.install(), std::nullopt);
    reported.expectReported({"windows: org.example.Second", "active: org.example.Second"});
    ASSERT_EQ(extension.status(), (GnomeExtension::Status{State::on, ""}));

    shell.kill();
    reported.expectReported({"windows:", "active: none"});
}

} // namespace

} // namespace glidemap
