// Tests the program's startup and exit, as the user and the desktop observe them.
#include "application_test_base.h"
#include "desktops/silent_socket.h"
#include "x_reply.h"

#include <xcb/xcb.h>

#include <csignal>

namespace glidemap::test {
namespace {

class StartupAndShutdownTest : public ApplicationTest {};

// Collects the messages that programs broadcast on the stage's display. A message arrives in
// several parts, which are joined.
class Broadcasts {
public:
    explicit Broadcasts(const XDisplay& display) : connection(display.connection()) {
        const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(connection, display.root(), XCB_CW_EVENT_MASK, &events);
        xcb_flush(connection);
    }

    bool waitFor(const std::string& message) {
        return waitUntil([&] {
            read();
            return text.find(message) != std::string::npos;
        });
    }

private:
    void read() {
        while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection)}) {
            if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
                const auto* const message =
                    reinterpret_cast<const xcb_client_message_event_t*>(event.get());
                const auto* const piece = reinterpret_cast<const char*>(message->data.data8);
                text.append(piece, sizeof message->data.data8);
            }
        }
    }

    xcb_connection_t* const connection;
    std::string text;
};

TEST_F(StartupAndShutdownTest, FirstStartShowsTheWindowWithTheDefaultBindings) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(glidemap.waitForWindow());
    EXPECT_EQ(glidemap.window()->className, "Glidemap");
    EXPECT_EQ(glidemap.window()->content.width, 720);
    EXPECT_EQ(glidemap.window()->content.height, 520);
    glidemap.waitFor("push button", "Edit Draw Circle (any direction)");
    glidemap.waitFor("push button", "Edit Hold + Tap Right");
    glidemap.waitFor("push button", "Edit Hold + Tap Left");
    EXPECT_TRUE(std::filesystem::exists(stage.bindingsFile()));
}

TEST_F(StartupAndShutdownTest, EachTerminationSignalEndsTheProgramCleanly) {
    ApplicationStage stage;
    for (const int signal : {SIGTERM, SIGINT}) {
        RunningGlidemap glidemap(stage);
        ASSERT_TRUE(glidemap.waitForWindow());
        EXPECT_EQ(glidemap.end(signal), 0) << strsignal(signal);
        EXPECT_TRUE(waitUntil([&] { return stage.panel->items().empty(); }));
    }
}

// Checks only for the window, because the accessibility bus cannot be found without the session
// bus.
TEST_F(StartupAndShutdownTest, UnresponsiveBusDelaysNeitherStartupNorExit) {
    ApplicationStage stage;
    const SilentSocket bus;
    auto command = stage.command();
    command.environment["DBUS_SESSION_BUS_ADDRESS"] = bus.address();
    command.environment["DBUS_SYSTEM_BUS_ADDRESS"] = bus.address();
    for (const bool isWaylandToo : {false, true}) {
        if (isWaylandToo) { // under Wayland, the backends for GNOME and KWin use the bus
            command.environment["WAYLAND_DISPLAY"] = "none";
            command.environment["QT_QPA_PLATFORM"] = "xcb";
        }
        RunningGlidemap glidemap(stage, command);
        ASSERT_TRUE(waitUntil([&] { return glidemap.window().has_value(); }));
        EXPECT_EQ(glidemap.end(SIGTERM), 0);
    }
}

TEST_F(StartupAndShutdownTest, BusThatStopsRespondingDoesNotDelayTheExit) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(glidemap.waitForWindow());
    stage.session.stop();
    EXPECT_EQ(glidemap.end(SIGTERM), 0);
    stage.session.goOn();
}

TEST_F(StartupAndShutdownTest, SecondLaunchShowsTheWindowOfTheFirstInstanceAndExits) {
    ApplicationStage stage;
    RunningGlidemap first(stage);
    ASSERT_TRUE(first.waitForWindow());
    stage.display.close(*first.window());
    ASSERT_TRUE(waitUntil([&] { return !first.window(); }));
    RunningGlidemap second(stage);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_TRUE(first.waitForWindow());
    EXPECT_EQ(stage.panel->items().size(), 1U);
    EXPECT_EQ(first.end(SIGTERM), 0);
}

TEST_F(StartupAndShutdownTest, SecondLaunchRaisesACoveredWindow) {
    ApplicationStage stage;
    RunningGlidemap first(stage);
    ASSERT_TRUE(first.waitForWindow());
    const std::uint32_t other = stage.display.openWindow({0, 0, 1200, 780});
    ASSERT_TRUE(waitUntil([&] { return stage.display.activeWindow() == other; }));
    RunningGlidemap second(stage);
    EXPECT_EQ(second.waitForEnd(), 0);
    EXPECT_TRUE(first.waitForWindow());
}

TEST_F(StartupAndShutdownTest, StaleFilesOfAKilledInstanceDoNotPreventStartup) {
    ApplicationStage stage;
    {
        RunningGlidemap first(stage);
        ASSERT_TRUE(first.waitForWindow());
        EXPECT_EQ(first.end(SIGKILL), 128 + SIGKILL);
    }
    RunningGlidemap second(stage);
    EXPECT_TRUE(second.waitForWindow());
    EXPECT_EQ(second.end(SIGTERM), 0);
}

TEST_F(StartupAndShutdownTest, ClosingTheWindowKeepsTheProgramRunning) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(glidemap.waitForWindow());
    stage.display.close(*glidemap.window());
    ASSERT_TRUE(waitUntil([&] { return !glidemap.window(); }));
    EXPECT_TRUE(glidemap.menu().choose("Settings…"));
    EXPECT_TRUE(glidemap.waitForWindow());
}

TEST_F(StartupAndShutdownTest, ProgramExitsWithoutACrashWhenTheDisplayIsLost) {
    ApplicationStage stage;
    RunningGlidemap glidemap(stage);
    ASSERT_TRUE(glidemap.waitForWindow());
    stage.display.kill();
    EXPECT_EQ(glidemap.waitForEnd(), 1);
}

TEST_F(StartupAndShutdownTest, SecondLaunchTimesOutIfTheFirstInstanceHangs) {
    ApplicationStage stage;
    RunningGlidemap first(stage);
    ASSERT_TRUE(first.waitForWindow());
    kill(first.process(), SIGSTOP);
    RunningGlidemap second(stage);
    ASSERT_TRUE(second.waitForWindow());
    second.waitFor("label", "Glidemap is not responding");
    EXPECT_NE(contentOf(stage.complaintsFile()).find("not responding"), std::string::npos);
    stage.display.close(*second.window());
    EXPECT_EQ(second.waitForEnd(), 1);
    kill(first.process(), SIGCONT);
    EXPECT_EQ(first.end(SIGTERM), 0);
}

TEST_F(StartupAndShutdownTest, SecondLaunchWithoutADisplayReportsAHungInstance) {
    ApplicationStage stage;
    RunningGlidemap first(stage);
    ASSERT_TRUE(first.waitForWindow());
    kill(first.process(), SIGSTOP);
    for (const char* display : {"", ":4321"}) {
        auto command = stage.command();
        command.environment["DISPLAY"] = display;
        RunningGlidemap second(stage, command);
        EXPECT_EQ(second.waitForEnd(), 1) << display;
    }
    kill(first.process(), SIGCONT);
    EXPECT_EQ(first.end(SIGTERM), 0);
}

TEST_F(StartupAndShutdownTest, MissingLockFolderIsReportedToTheUser) {
    ApplicationStage stage;
    auto command = stage.command();
    command.environment["XDG_RUNTIME_DIR"] = "/dev/null";
    RunningGlidemap glidemap(stage, command);
    ASSERT_TRUE(glidemap.waitForWindow());
    glidemap.waitFor("label", "Glidemap could not start");
    stage.display.close(*glidemap.window());
    EXPECT_EQ(glidemap.waitForEnd(), 1);
}

// Until the notification is completed, the launcher shows a busy indicator for several seconds.
TEST_F(StartupAndShutdownTest, FirstWindowCompletesTheStartupNotification) {
    ApplicationStage stage;
    Broadcasts broadcasts(stage.display);
    auto command = stage.command();
    command.environment["DESKTOP_STARTUP_ID"] = "launcher-1_TIME1";
    {
        RunningGlidemap glidemap(stage, command);
        ASSERT_TRUE(glidemap.waitForWindow());
        EXPECT_TRUE(broadcasts.waitFor("remove: ID=\"launcher-1_TIME1\""));
        EXPECT_EQ(glidemap.end(SIGTERM), 0);
    }
    command.environment["DESKTOP_STARTUP_ID"] = "launcher-2_TIME1";
    // In this folder the lock file cannot be created, so the program shows only an alert.
    command.environment["XDG_RUNTIME_DIR"] = "/dev/null";
    RunningGlidemap alert(stage, command);
    ASSERT_TRUE(alert.waitForWindow());
    EXPECT_TRUE(broadcasts.waitFor("remove: ID=\"launcher-2_TIME1\""));
    stage.display.close(*alert.window());
    EXPECT_EQ(alert.waitForEnd(), 1);
}

TEST_F(StartupAndShutdownTest, ReportsThatItCannotListenForASecondLaunchAndKeepsRunning) {
    ApplicationStage stage;
    auto command = stage.command();
    const std::filesystem::path runtime = command.environment["XDG_RUNTIME_DIR"];
    std::filesystem::create_directories(runtime / "glidemap.socket/in/the/way");
    RunningGlidemap glidemap(stage, command);
    EXPECT_TRUE(glidemap.waitForWindow());
    EXPECT_NE(contentOf(stage.complaintsFile()).find("cannot listen for a second launch"),
              std::string::npos);
    EXPECT_EQ(glidemap.end(SIGTERM), 0);
}

TEST_F(StartupAndShutdownTest, RejectsUnknownOptionsAndInvalidCombinations) {
    struct Row {
        std::vector<std::string> options;
        int status;
        std::string line;
    };
    const Row rows[] = {
        {{"--version"}, 0, "Glidemap " GLIDEMAP_VERSION},
        {{"--help"}, 0, "Runs actions for trackpad gestures."},
        {{"--nonsense"}, 2, ""},
        {{"--diagnose"}, 0, "Glidemap " GLIDEMAP_VERSION},
        {{"--version", "--help"}, 2, ""},
        {{"--verbose", "--diagnose"}, 2, ""},
        {{"file"}, 2, ""},
        {{"-psn_0_1"}, 2, ""}, // only macOS adds such an argument
    };
    const RuntimeFolder folder;
    for (const Row& row : rows) {
        Program::Command command{.words = {GLIDEMAP_PROGRAM},
                                 .environment = plainEnvironment(folder.path()),
                                 .log = folder.path() / "log"};
        command.words.insert(command.words.end(), row.options.begin(), row.options.end());
        Program program(command);
        if (!row.line.empty()) {
            EXPECT_EQ(program.nextLine().value_or("").substr(0, row.line.size()), row.line);
        }
        EXPECT_EQ(program.finish(), row.status) << row.options.front();
    }
    EXPECT_NE(contentOf(folder.path() / "log")
                  .find("usage: glidemap [--verbose | --diagnose | --version | --help]"),
              std::string::npos);
}

// Reads the dynamic loader's list of libraries. `--diagnose` reports the Qt version, so its list
// must contain Qt.
TEST_F(StartupAndShutdownTest, VersionAndHelpDoNotLoadQt) {
    for (const std::string option : {"--version", "--help", "--nonsense", "--diagnose"}) {
        const RuntimeFolder folder;
        auto environment = plainEnvironment(folder.path());
        environment["LD_DEBUG"] = "files";
        Program program({.words = {GLIDEMAP_PROGRAM, option},
                         .environment = environment,
                         .log = folder.path() / "log"});
        program.finish();
        const std::string loaded = contentOf(folder.path() / "log");
        EXPECT_NE(loaded.find("libc.so"), std::string::npos) << option;
        for (const char* library : {"libQt6", "libstdc++", "libglidemap-program"}) {
            EXPECT_EQ(loaded.find(library) != std::string::npos, option == "--diagnose")
                << option << ": " << library;
        }
    }
}

TEST_F(StartupAndShutdownTest, DiagnosisCompletesWithoutADisplayAndWithAHungBus) {
    const RuntimeFolder folder;
    const SilentSocket silent;
    auto environment = plainEnvironment(folder.path());
    environment["DBUS_SESSION_BUS_ADDRESS"] = silent.address();
    environment["DBUS_SYSTEM_BUS_ADDRESS"] = silent.address();
    Program program({.words = {GLIDEMAP_PROGRAM, "--diagnose"},
                     .environment = environment,
                     .log = folder.path() / "log"});
    bool hasSilentBus = false;
    while (const auto line = program.nextLine()) {
        hasSilentBus = hasSilentBus || *line == "  session bus: does not reply";
        if (*line == "Bindings") {
            break;
        }
    }
    EXPECT_TRUE(hasSilentBus);
    EXPECT_EQ(program.finish(), 0);
}

TEST_F(StartupAndShutdownTest, VerboseOptionEnablesLogging) {
    ApplicationStage stage;
    auto command = stage.command();
    command.words.emplace_back("--verbose");
    RunningGlidemap glidemap(stage, command);
    EXPECT_TRUE(glidemap.waitForWindow());
    EXPECT_EQ(glidemap.end(SIGTERM), 0);
    EXPECT_NE(contentOf(stage.complaintsFile()).find(" bindings: "), std::string::npos);
}

} // namespace
} // namespace glidemap::test
