#include "desktops/fake_window_listener.h"
#include "desktops/listening.h"
#include "desktops/private_bus.h"
#include "desktops/runtime_folder.h"
#include "desktops/scoped_environment.h"
#include "fake_gnome_shell.h"
#include "platform/linux/windows/gnome/gnome_window_backend.h"

#include <gio/gio.h>
#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <filesystem>
#include <string>

namespace glidemap {

namespace {

using Listening = test::Listening<GnomeWindowBackend>;
using test::FakeWindowListener;
using test::ScopedEnvironment;

constexpr const char* editor =
    "('org.gnome.TextEditor.desktop', 'editor', 'instance', 'T', uint32 42)";

// Formats a report as the extension does.
std::string message(const std::string& windows, const std::string& active) {
    return "(@a(ssssu) [" + windows + "], @a(ssssu) [" + active + "])";
}

// A Wayland display socket on which this process listens.
class DisplaySocket {
public:
    explicit DisplaySocket(const std::filesystem::path& file)
        : socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address = {};
        address.sun_family = AF_UNIX;
        file.native().copy(address.sun_path, sizeof address.sun_path - 1);
        std::filesystem::remove(file);
        EXPECT_EQ(bind(socket, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(socket, 8), 0);
    }
    DisplaySocket(const DisplaySocket&) = delete;
    DisplaySocket& operator=(const DisplaySocket&) = delete;
    ~DisplaySocket() { close(socket); }

private:
    const int socket;
};

class GnomeWindows : public testing::Test {
protected:
    test::PrivateBus bus;
    test::RuntimeFolder folder;
    DisplaySocket display{folder.path() / "wayland-test"};
    ScopedEnvironment here{{{"DBUS_SESSION_BUS_ADDRESS", bus.address()},
                            {"XDG_CURRENT_DESKTOP", "GNOME"},
                            {"XDG_RUNTIME_DIR", folder.path()},
                            {"WAYLAND_DISPLAY", "wayland-test"}}};
    FakeWindowListener reported;
};

TEST_F(GnomeWindows, ReportsNoWindowsWithoutTheExtension) {
    FakeGnomeShell shell(bus.address(), {});
    const Listening listening(reported);
    EXPECT_TRUE(listening.started);
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(GnomeWindows, QueriesARunningExtension) {
    FakeGnomeShell shell(bus.address(), {});
    shell.startExtension(message(editor, editor));
    const Listening listening(reported);
    reported.expectReported({"windows: org.gnome.TextEditor", "active: org.gnome.TextEditor"});
}

TEST_F(GnomeWindows, ReportsWindowsOfAnExtensionThatStartsAfterTheBackend) {
    FakeGnomeShell shell(bus.address(), {});
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    shell.startExtension(message(editor, ""));
    reported.expectReported({"windows: org.gnome.TextEditor"});
    shell.emit("WindowsChanged", message(editor, editor));
    reported.expectReported({"active: org.gnome.TextEditor"});
}

TEST_F(GnomeWindows, ReportsNoWindowsWhileTheScreenIsLocked) {
    FakeGnomeShell shell(bus.address(), {});
    shell.startExtension(message(editor, editor));
    const Listening listening(reported);
    reported.expectReported({"windows: org.gnome.TextEditor", "active: org.gnome.TextEditor"});
    shell.stopExtension();
    reported.expectReported({"windows:", "active: none"});
    shell.startExtension(message(editor, editor));
    reported.expectReported({"windows: org.gnome.TextEditor", "active: org.gnome.TextEditor"});
}

TEST_F(GnomeWindows, FollowsAShellThatStartsAfterTheBackendAndRestarts) {
    const Listening listening(reported);
    EXPECT_TRUE(listening.started);
    reported.expectReported({"windows:", "active: none"});
    for (int times = 0; times < 2; ++times) {
        FakeGnomeShell shell(bus.address(), {});
        shell.startExtension(message(editor, editor));
        reported.expectReported({"windows: org.gnome.TextEditor", "active: org.gnome.TextEditor"});
        shell.stopExtension();
        reported.expectReported({"windows:", "active: none"});
    }
}

TEST_F(GnomeWindows, ReportsNoWindowsAfterTheShellCrashes) {
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    {
        FakeGnomeShell shell(bus.address(), {});
        shell.startExtension(message(editor, editor));
        reported.expectReported({"windows: org.gnome.TextEditor", "active: org.gnome.TextEditor"});
    }
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(GnomeWindows, AcceptsSignalsOnlyFromTheShell) {
    FakeGnomeShell shell(bus.address(), {});
    shell.startExtension(message("", ""));
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    g_dbus_connection_emit_signal(
        bus.connection(), nullptr, "/org/glidemap/Windows", "org.glidemap.Windows",
        "WindowsChanged",
        g_variant_new_parsed("([('forged', '', '', '', uint32 1)], @a(ssssu) [])"), nullptr);
    g_dbus_connection_flush_sync(bus.connection(), nullptr, nullptr);
    // The bus keeps the order, so an accepted report from the other program would arrive first.
    shell.emit("WindowsChanged", message(editor, ""));
    reported.expectReported({"windows: org.gnome.TextEditor"});
}

TEST_F(GnomeWindows, BusNameOwnerThatDoesNotServeTheDisplayIsRejected) {
    std::array<int, 2> ends{};
    ASSERT_EQ(pipe(ends.data()), 0);
    const pid_t compositor = fork();
    if (compositor == 0) {
        const DisplaySocket others(folder.path() / "wayland-test");
        [[maybe_unused]] const auto said = write(ends[1], "", 1);
        while (true) {
            pause();
        }
    }
    char ready = 0;
    ASSERT_EQ(read(ends[0], &ready, 1), 1);
    {
        FakeGnomeShell shell(bus.address(), {});
        shell.startExtension(message(editor, editor));
        const Listening listening(reported);
        reported.expectReported({"windows:", "active: none"});
        shell.emit("WindowsChanged", message(editor, editor));
        reported.expectReported({});
    }
    kill(compositor, SIGKILL);
    waitpid(compositor, nullptr, 0);
    close(ends[0]);
    close(ends[1]);
}

TEST_F(GnomeWindows, RejectsEveryBusNameOwnerIfNoDisplayIsSet) {
    const ScopedEnvironment without{{{"WAYLAND_DISPLAY", ""}}};
    FakeGnomeShell shell(bus.address(), {});
    shell.startExtension(message(editor, editor));
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(GnomeWindows, InvalidMessagesAreIgnored) {
    FakeGnomeShell shell(bus.address(), {});
    shell.startExtension(message("", ""));
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    shell.emit("WindowsChanged", "()");
    shell.emit("WindowsChanged", "([('a', 'b')], [('a', 'b')])");
    shell.emit("WindowsChanged", "('text',)");
    shell.emit("SomethingElse", message(editor, editor));
    shell.emit("WindowsChanged", message(editor, ""));
    reported.expectReported({"windows: org.gnome.TextEditor"});
}

TEST_F(GnomeWindows, IdentifiesAWindowByDesktopEntryOrClass) {
    struct Row {
        const char* reported;
        WindowIdentity expected;
    };
    const Row rows[] = {
        {"('a.desktop', 'class', 'i', 'T', uint32 42)", {"a", "i", "T", 42}},
        {"('a', 'class', '', '', uint32 1)", {"a", "", "", 1}},
        {"('', 'class', '', '', uint32 2147483647)", {"class", "", "", 2147483647}},
        {"('', 'class.desktop', '', '', uint32 2147483648)",
         {"class.desktop", "", "", std::nullopt}},
        {"('', '', '', 'T', uint32 0)", {"", "", "T", std::nullopt}},
    };
    FakeGnomeShell shell(bus.address(), {});
    std::string all;
    std::vector<WindowIdentity> expected;
    for (const Row& row : rows) {
        all += (all.empty() ? "" : ", ") + std::string(row.reported);
        expected.push_back(row.expected);
    }
    shell.startExtension("([" + all + "], @a(ssssu) [])");
    const Listening listening(reported);
    reported.expectReported({"windows: a, a, class, class.desktop, ", "active: none"});
    EXPECT_EQ(reported.windows(), expected);
}

TEST_F(GnomeWindows, DoesNotStartOnDesktopsOtherThanGNOME) {
    for (const char* desktop : {"", "KDE", "GNOME-Flashback"}) {
        const ScopedEnvironment elsewhere{{{"XDG_CURRENT_DESKTOP", desktop}}};
        EXPECT_FALSE(Listening(reported).started) << desktop;
    }
    reported.expectReported({});
}

TEST_F(GnomeWindows, StartsIfTheSessionIsGNOMEOrTheShellRuns) {
    {
        const ScopedEnvironment derived{{{"XDG_CURRENT_DESKTOP", "ubuntu:GNOME"}}};
        EXPECT_TRUE(Listening(reported).started);
    }
    const ScopedEnvironment silent{{{"XDG_CURRENT_DESKTOP", ""}}};
    FakeGnomeShell shell(bus.address(), {});
    EXPECT_TRUE(Listening(reported).started);
}

} // namespace

} // namespace glidemap
