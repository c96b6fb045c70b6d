#include "core/log.h"
#include "desktops/application_folder.h"
#include "desktops/launch_reports.h"
#include "desktops/scoped_environment.h"
#include "fake_application_service.h"
#include "platform/linux/applications/application_launcher.h"
#include "platform/linux/desktop/application_scope.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <fcntl.h>
#include <gio/gdesktopappinfo.h>
#include <gio/gio.h>
#include <gmock/gmock.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <fstream>
#include <thread>

namespace glidemap {
namespace {

using test::ScopedEnvironment;

class ApplicationLauncherTest : public testing::Test {
protected:
    ApplicationLauncherTest() {
        sessionBus();
        folder.clear();
    }

    // Returns a script that writes the words to the pipe, after the shell has expanded them.
    std::string reporting(const std::string& name, const std::string& words) {
        return folder.script(name, "echo " + words + " >" + pipe.string() + "\n");
    }

    void launch(const std::string& url) {
        thread.call([&] { launchApplication(url); });
    }

    void installAndLaunch(const std::string& identifier, const std::string& keys) {
        launch("file://" + folder.install(identifier, "Name=Some\n" + keys).string());
    }

    // GIO notices new entries with a delay.
    static void waitForHandler(const char* scheme, const std::string& identifier) {
        const auto deadline = std::chrono::steady_clock::now() + test::patience;
        std::string handler;
        while (handler != identifier && std::chrono::steady_clock::now() < deadline) {
            if (GAppInfo* const info = g_app_info_get_default_for_uri_scheme(scheme)) {
                handler = g_app_info_get_id(info);
                g_object_unref(info);
            }
            std::this_thread::yield();
        }
        EXPECT_EQ(handler, identifier);
    }

    // Launches one more script. The report of any earlier launch would arrive before this script's.
    void expectNothingElse() {
        installAndLaunch("last", "Exec=" + reporting("last", "the last") + "\n");
        EXPECT_EQ(reports.nextLine(), "the last");
    }

    ApplicationFolder& folder = ApplicationFolder::instance();
    std::filesystem::path pipe = folder.path() / "reports";
    LaunchReports reports{pipe};
    DesktopThread thread;
};

TEST_F(ApplicationLauncherTest, StartsTheProgramOfTheDesktopEntry) {
    installAndLaunch("tool",
                     "Exec=" + reporting("tool", "\"$#:$1:$2\"") + " --new \"two words\"\n");
    EXPECT_EQ(reports.nextLine(), "2:--new:two words");
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, PassesTheEntryFileInTheEnvironment) {
    const auto script = reporting(
        "tool", "\"$GIO_LAUNCHED_DESKTOP_FILE $((GIO_LAUNCHED_DESKTOP_FILE_PID == $$))\"");
    installAndLaunch("tool", "Exec=" + script + "\n");
    EXPECT_EQ(reports.nextLine(),
              (folder.path() / "user/applications/tool.desktop").string() + " 1");
}

TEST_F(ApplicationLauncherTest, StartsProcessInItsOwnSessionAndNotAsAChild) {
    // The fields of /proc/PID/stat after the name are the state, parent, process group and session.
    installAndLaunch("tool", "Exec=" +
                                 reporting("tool", "\"$$ $(sed 's/.*) //' /proc/$$/stat | "
                                                   "cut -d' ' -f2-4)\"") +
                                 "\n");
    std::istringstream line(reports.nextLine());
    pid_t process = 0;
    pid_t parent = 0;
    pid_t group = 0;
    pid_t session = 0;
    line >> process >> parent >> group >> session;
    EXPECT_GT(process, 0);
    EXPECT_NE(parent, getpid());
    EXPECT_EQ(group, session);
    EXPECT_NE(session, getsid(0));
}

TEST_F(ApplicationLauncherTest, ProcessInheritsNoDescriptorAndNoBlockedSignal) {
    const int null = open("/dev/null", O_RDONLY | O_CLOEXEC);
    // This descriptor has no close-on-exec flag, and its number is higher than those of the
    // descriptors that the shell opens itself.
    const int ours = fcntl(null, F_DUPFD, 200);
    ASSERT_GE(ours, 200);
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigaddset(&blocked, SIGINT);
    pthread_sigmask(SIG_BLOCK, &blocked, &before);
    {
        DesktopThread inheriting;
        const auto script = folder.script(
            "tool", "{ grep SigBlk /proc/self/status; ls /proc/$$/fd | tr '\\n' ' '; echo; } >" +
                        pipe.string() + "\n");
        const auto entry = folder.install("tool", "Name=Some\nExec=" + script.string() + "\n");
        inheriting.call([&] { launchApplication("file://" + entry.string()); });
        EXPECT_EQ(reports.nextLine(), "SigBlk:\t0000000000000000");
        EXPECT_THAT(" " + reports.nextLine(),
                    testing::Not(testing::HasSubstr(" " + std::to_string(ours) + " ")));
    }
    pthread_sigmask(SIG_SETMASK, &before, nullptr);
    close(ours);
    close(null);
}

TEST_F(ApplicationLauncherTest, InvalidEntryIsNotLaunched) {
    launch("");
    launch("nonsense");
    launch("https://example.org/");
    launch("file:///nowhere/at/all.desktop");
    launch("file://elsewhere/tmp/a.desktop");
    launch("file://" + folder.path().string());
    installAndLaunch("gone", "Exec=/nowhere/gone\n");
    installAndLaunch("hidden", "Hidden=true\nExec=" + reporting("hidden", "hidden") + "\n");
    installAndLaunch("linked", "Type=Link\nURL=https://example.org/\n");
    installAndLaunch("empty", "");
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, LogsTheReasonForAFailedStart) {
    enableLog();
    testing::internal::CaptureStderr();
    launch("file:///nowhere/at/all.desktop");
    const auto broken = folder.script("broken", "");
    std::ofstream(broken) << "#!/nowhere/interpreter\n";
    installAndLaunch("broken", "Exec=" + broken.string() + "\n");
    installAndLaunch("quote", "Exec=sh -c \"open\n");
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_THAT(log, testing::HasSubstr("no program to start in file:///nowhere/at/all.desktop"));
    EXPECT_THAT(log, testing::HasSubstr("broken.desktop was not started: " + broken.string() +
                                        ": No such file or directory"));
    EXPECT_THAT(log, testing::HasSubstr("no program to start in file://" + folder.path().string()));
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, RunsInTheFolderOfTheEntryWithTheSessionEnvironment) {
    const ScopedEnvironment here({{"OF_THE_SESSION", "kept"},
                                  {"DESKTOP_STARTUP_ID", "ours"},
                                  {"XDG_ACTIVATION_TOKEN", "ours"}});
    const auto script =
        reporting("tool", "\"$PWD $OF_THE_SESSION:$DESKTOP_STARTUP_ID:$XDG_ACTIVATION_TOKEN\"");
    installAndLaunch("tool", "Path=/usr/share\nExec=" + script + "\n");
    EXPECT_EQ(reports.nextLine(), "/usr/share kept::");
}

TEST_F(ApplicationLauncherTest, TerminalProgramRunsInATerminal) {
    folder.script("xdg-terminal-exec", "echo \"terminal: $@\" >" + pipe.string() + "\n");
    const ScopedEnvironment here({{"PATH", folder.path().string() + ":" + std::getenv("PATH")}});
    installAndLaunch("tool", "Terminal=true\nExec=sh -c 'two words'\n");
    EXPECT_EQ(reports.nextLine(), "terminal: sh -c two words");
}

TEST_F(ApplicationLauncherTest, ActivatesDBusActivatableApplication) {
    FakeApplicationService application("org.example.My-App");
    installAndLaunch("org.example.My-App",
                     "DBusActivatable=true\nExec=" + reporting("tool", "started") + "\n");
    EXPECT_EQ(application.nextCall(),
              "/org/example/My_App, org.freedesktop.Application.Activate, (@a{sv} {},)");
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, PassesActivationTokenToDBusActivatedApplication) {
    FakeApplicationService application("org.example.Proven");
    const auto path = folder.install(
        "org.example.Proven",
        "Name=Some\nDBusActivatable=true\nExec=" + reporting("tool", "started") + "\n");
    thread.call([&] {
        GDesktopAppInfo* const entry = g_desktop_app_info_new_from_filename(path.c_str());
        EXPECT_TRUE(acceptsLaunchToken(entry));
        launchApplication(entry, {"id_TIME1", "token", {}});
        g_object_unref(entry);
    });
    EXPECT_EQ(application.nextCall(),
              "/org/example/Proven, org.freedesktop.Application.Activate, "
              "({'desktop-startup-id': <'id_TIME1'>, 'activation-token': <'token'>},)");
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, AnnouncesOnlySuccessfulLaunchesOfEntriesWithStartupNotify) {
    const auto launchProven = [&](const std::string& keys) {
        const auto path = folder.install("noticing", "Name=Some\n" + keys);
        int begun = 0;
        thread.call([&] {
            GDesktopAppInfo* const entry = g_desktop_app_info_new_from_filename(path.c_str());
            launchApplication(entry, {"id", "token", [&begun] {
                                          ++begun;
                                      }});
            g_object_unref(entry);
        });
        return begun;
    };
    const std::string exec =
        "Exec=" + reporting("tool", "$DESKTOP_STARTUP_ID $XDG_ACTIVATION_TOKEN") + "\n";
    EXPECT_EQ(launchProven("StartupNotify=true\n" + exec), 1);
    EXPECT_EQ(reports.nextLine(), "id token");
    EXPECT_EQ(launchProven(exec), 0);
    EXPECT_EQ(reports.nextLine(), "id token");
    const auto broken = folder.script("broken", "");
    std::ofstream(broken) << "#!/nowhere/interpreter\n";
    EXPECT_EQ(launchProven("StartupNotify=true\nExec=" + broken.string() + "\n"), 0);
}

TEST_F(ApplicationLauncherTest, FallsBackToExecIfDBusActivationFails) {
    installAndLaunch("org.example.NoService",
                     "DBusActivatable=true\nExec=" + reporting("tool", "started") + "\n");
    EXPECT_EQ(reports.nextLine(), "started");

    FakeApplicationService other("org.example.Other", "org.freedesktop.DBus.Error.UnknownMethod");
    installAndLaunch("org.example.Other",
                     "DBusActivatable=true\nExec=" + reporting("other", "other") + "\n");
    EXPECT_EQ(reports.nextLine(), "other");

    installAndLaunch("no-bus-name",
                     "DBusActivatable=true\nExec=" + reporting("name", "without a name") + "\n");
    EXPECT_EQ(reports.nextLine(), "without a name");
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, SlowApplicationIsNotStartedTwice) {
    FakeApplicationService slow("org.example.Slow", "org.freedesktop.DBus.Error.NoReply");
    installAndLaunch("org.example.Slow",
                     "DBusActivatable=true\nExec=" + reporting("tool", "started") + "\n");
    slow.nextCall();
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, OpensURLWithTheUsersHandler) {
    std::ofstream(folder.path() / "config/mimeapps.list")
        << "[Default Applications]\nx-scheme-handler/https=browser.desktop\n";
    folder.install("browser", "Name=Browser\nMimeType=x-scheme-handler/https;\nExec=" +
                                  reporting("browser", "\"$#:$1\"") + " %u\n");
    waitForHandler("https", "browser.desktop");
    const std::string url = "https://example.org/?a=1&b=$(touch%20x);'c'";
    thread.call([&] { launchHandler(url); });
    EXPECT_EQ(reports.nextLine(), "1:" + url);

    thread.call([&] {
        launchHandler("");
        launchHandler("nonsense");
        launchHandler("unheard-of:thing");
    });
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, OpensURLOverDBusIfTheHandlerIsDBusActivatable) {
    FakeApplicationService browser("org.example.Browser");
    std::ofstream(folder.path() / "config/mimeapps.list")
        << "[Default Applications]\nx-scheme-handler/gopher=org.example.Browser.desktop\n";
    folder.install("org.example.Browser",
                   "Name=Browser\nDBusActivatable=true\nMimeType=x-scheme-handler/gopher;\nExec=" +
                       reporting("browser", "started") + " %u\n");
    waitForHandler("gopher", "org.example.Browser.desktop");
    thread.call([&] { launchHandler("gopher://example.org/"); });
    EXPECT_EQ(browser.nextCall(), "/org/example/Browser, org.freedesktop.Application.Open, "
                                  "(['gopher://example.org/'], @a{sv} {})");
    expectNothingElse();
}

TEST_F(ApplicationLauncherTest, ProcessGetsItsOwnSystemdUnit) {
    FakeApplicationService systemd("org.freedesktop.systemd1");
    installAndLaunch("my-tool", "Exec=" + reporting("tool", "$$") + "\n");
    const std::string process = reports.nextLine();
    std::string call = systemd.nextCall();
    while (call.find("'app-glidemap-last-") != std::string::npos)
        call = systemd.nextCall(); // an earlier test's call may still arrive
    EXPECT_EQ(call,
              "/org/freedesktop/systemd1, org.freedesktop.systemd1.Manager.StartTransientUnit, "
              "('app-glidemap-my\\\\x2dtool-" +
                  process + ".scope', 'fail', [('PIDs', <[uint32 " + process +
                  "]>), ('Slice', <'app.slice'>), ('CollectMode', <'inactive-or-failed'>)], "
                  "@a(sa(sv)) [])");
}

TEST(ApplicationScope, UnitNameContainsTheApplication) {
    EXPECT_EQ(scopeName("org.example.App.desktop", 12), "app-glidemap-org.example.App-12.scope");
    EXPECT_EQ(scopeName("my-tool", 3), "app-glidemap-my\\x2dtool-3.scope");
    EXPECT_EQ(scopeName("a b/c", 3), "app-glidemap-a\\x20b\\x2fc-3.scope");
    EXPECT_EQ(scopeName("é", 3), "app-glidemap-\\xc3\\xa9-3.scope");
}

} // namespace
} // namespace glidemap
