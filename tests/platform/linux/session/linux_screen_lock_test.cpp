#include "desktops/fake_programs.h"
#include "desktops/fake_service.h"
#include "desktops/private_bus.h"
#include "desktops/silent_socket.h"
#include "kit/fake_main_queue.h"
#include "kit/in_environment.h"
#include "kit/leash.h"
#include "kit/patience.h"
#include "kit/temporary_folder.h"
#include "platform/linux/session/linux_screen_lock.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <atomic>
#include <deque>
#include <filesystem>
#include <optional>
#include <thread>

namespace glidemap {
namespace {

using namespace std::chrono_literals;
using test::FakeService;
using test::InEnvironment;
using test::Journal;
using test::PrivateBus;
using test::ServiceDescription;
using test::SilentSocket;
using Lines = Journal::Lines;
using Patience = LinuxScreenLock::Patience;

constexpr const char* sessionInterface = "org.freedesktop.login1.Session";
// logind sends signals under the session's own path, even for calls to another path.
constexpr const char* sessionPath = "/org/freedesktop/login1/session/_31";

const ServiceDescription logind{
    "org.freedesktop.login1", "/org/freedesktop/login1/session/auto",
    "<interface name='org.freedesktop.login1.Session'><method name='Lock'/>"
    "<property name='LockedHint' type='b' access='read'/></interface>"};

ServiceDescription screenSaver(const std::string& name, const std::string& path,
                               const std::string& argument = "") {
    return {name, path,
            "<interface name='" + name + "'><method name='Lock'>" + argument +
                "</method></interface>"};
}

const ServiceDescription gnome = screenSaver("org.gnome.ScreenSaver", "/org/gnome/ScreenSaver");
const ServiceDescription freedesktop = screenSaver("org.freedesktop.ScreenSaver", "/ScreenSaver");

// Limits that no test reaches. A test shortens the limit that it examines.
constexpr Patience endless{600s, 600s, 600s};

using Limit = std::chrono::milliseconds;
constexpr Limit minLimit{50};
constexpr Limit maxLimit{20'000};

Patience withLimitOnLocked(Limit limit) {
    Patience patience = endless;
    patience.locked = limit;
    return patience;
}

Patience withReplyLimit(Limit limit) {
    Patience patience = endless;
    patience.answer = limit;
    return patience;
}

class LinuxScreenLockTest : public testing::Test {
protected:
    // Requests a lock, and returns the events until the request is complete.
    Lines lock(Patience patience = endless) {
        LinuxScreenLock screenLock(desktop, queue, patience);
        screenLock.lock(otherwise());
        EXPECT_TRUE(journal.waitForAny({"let go", "to the main thread"}));
        queue.runAll();
        Lines lines = journal.lines();
        std::erase(lines, "let go");
        std::erase_if(lines,
                      [](const std::string& line) { return line.ends_with("no callers left"); });
        return lines;
    }

    // Like lock(), but repeats the request with longer limits until the expected events happen,
    // because the machine may be slow. Returns the events of the last attempt.
    Lines lockInTime(const Lines& expected, const std::function<Patience(Limit)>& patienceOf,
                     const std::string& always = {}) {
        Lines lines;
        for (Limit limit = minLimit; lines != expected && limit <= maxLimit; limit *= 4) {
            journal.clear();
            const auto began = std::chrono::steady_clock::now();
            lines = lock(patienceOf(limit));
            lastLimit = limit;
            lastTook = std::chrono::steady_clock::now() - began;
            // Every attempt causes the event `always`, sometimes after the limit. The next attempt
            // must not record it.
            EXPECT_TRUE(always.empty() || journal.waitFor(always));
        }
        return lines;
    }

    // Returns a callback that records its call and its destruction. The screen lock destroys the
    // callback when it no longer needs it.
    std::function<void()> otherwise() {
        const std::shared_ptr<void> last(nullptr, [this](void*) { journal.add("let go"); });
        return [this, last] {
            journal.add("otherwise");
        };
    }

    FakeService& onSystemBus(const ServiceDescription& service) {
        return services.emplace_back(systemBus.address(), service, journal);
    }
    FakeService& onSessionBus(const ServiceDescription& service) {
        return services.emplace_back(sessionBus.address(), service, journal);
    }

    Journal journal;
    PrivateBus systemBus;
    PrivateBus sessionBus;
    InEnvironment system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address().c_str()};
    InEnvironment session{"DBUS_SESSION_BUS_ADDRESS", sessionBus.address().c_str()};
    std::deque<FakeService> services;
    // Hides the machine's programs and those of other tests.
    test::FakePrograms programs;
    InEnvironment path{"PATH", programs.folder().c_str()};
    InEnvironment display{"DISPLAY", ":no-display-of-a-test"};
    InEnvironment wayland{"WAYLAND_DISPLAY", nullptr};
    InEnvironment desktopName{"XDG_CURRENT_DESKTOP", nullptr};
    InEnvironment configuration{"XDG_CONFIG_HOME", programs.folder().c_str()};
    test::FakeMainQueue queue{[this] {
        journal.add("to the main thread");
    }};
    DesktopThread desktop;
    Limit lastLimit{};
    std::chrono::nanoseconds lastTook{};
};

TEST_F(LinuxScreenLockTest, CallsNoScreenSaverIfLogindLocksTheSession) {
    FakeService& manager = onSystemBus(logind);
    manager.answer("Lock", [&] {
        manager.set("LockedHint", true);
        return g_variant_new("()");
    });
    onSessionBus(gnome);
    EXPECT_EQ(lock(), (Lines{"login1.Lock()", "login1 get LockedHint"}));
}

TEST_F(LinuxScreenLockTest, WaitsForASlowLockerUntilTheSessionReportsLocked) {
    FakeService& manager = onSystemBus(logind);
    onSessionBus(gnome);
    LinuxScreenLock screenLock(desktop, queue, endless);
    screenLock.lock(otherwise());
    ASSERT_TRUE(journal.waitFor("login1 get LockedHint"));
    manager.setAndAnnounce("LockedHint", true, sessionInterface, sessionPath);
    EXPECT_TRUE(journal.waitFor("let go"));
    const Lines lines = journal.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "login1 get LockedHint"), 2);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "ScreenSaver.Lock()"), 0);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "to the main thread"), 0);
}

TEST_F(LinuxScreenLockTest, CallsScreenSaverIfTheSessionAcceptsButDoesNotLock) {
    onSystemBus(logind);
    onSessionBus(gnome);
    const Lines expected{"login1.Lock()", "login1 get LockedHint", "ScreenSaver.Lock()"};
    EXPECT_EQ(lockInTime(expected, withLimitOnLocked, "login1 get LockedHint"), expected);
}

TEST_F(LinuxScreenLockTest, FallbackRunsIfNoServiceLocks) {
    onSystemBus(logind);
    const Lines expected{"login1.Lock()", "login1 get LockedHint", "to the main thread",
                         "otherwise"};
    EXPECT_EQ(lockInTime(expected, withLimitOnLocked, "login1 get LockedHint"), expected);
}

TEST_F(LinuxScreenLockTest, ScreenSaverIsCalledIfTheSessionCannotBeLocked) {
    onSystemBus(logind).refuse("Lock");
    onSessionBus(gnome);
    EXPECT_EQ(lock(), (Lines{"login1.Lock()", "ScreenSaver.Lock()"}));
}

TEST_F(LinuxScreenLockTest, CallsTheScreenSaverOfEachDesktop) {
    struct Row {
        ServiceDescription service;
        const char* asked;
    };
    const Row rows[] = {
        {gnome, "ScreenSaver.Lock()"},
        {screenSaver("org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver",
                     "<arg type='s' direction='in'/>"),
         "ScreenSaver.Lock('',)"},
        {screenSaver("org.mate.ScreenSaver", "/org/mate/ScreenSaver"), "ScreenSaver.Lock()"},
        {screenSaver("org.xfce.ScreenSaver", "/org/xfce/ScreenSaver"), "ScreenSaver.Lock()"},
        {freedesktop, "ScreenSaver.Lock()"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.service.name);
        Journal asked;
        const FakeService saver(sessionBus.address(), row.service, asked);
        LinuxScreenLock screenLock(desktop, queue, endless);
        screenLock.lock(otherwise());
        EXPECT_TRUE(asked.waitFor("ScreenSaver: no callers left"));
        EXPECT_EQ(asked.lines(), (Lines{row.asked, "ScreenSaver: no callers left"}));
    }
    const Lines lines = journal.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "to the main thread"), 0);
}

TEST_F(LinuxScreenLockTest, CallsTheNextScreenSaverAfterARefusal) {
    onSessionBus(gnome).refuse("Lock");
    onSessionBus(freedesktop);
    EXPECT_EQ(lock(), (Lines{"ScreenSaver.Lock()", "ScreenSaver.Lock()"}));
}

TEST_F(LinuxScreenLockTest, SkipsAScreenSaverServiceWithoutALockMethod) {
    onSessionBus({"org.freedesktop.ScreenSaver", "/ScreenSaver",
                  "<interface name='org.freedesktop.ScreenSaver'><method name='Inhibit'/>"
                  "</interface>"});
    EXPECT_EQ(lock(), (Lines{"to the main thread", "otherwise"}));
}

TEST_F(LinuxScreenLockTest, CallsARunningScreenSaverBeforeAStartableScreenSaver) {
    sessionBus.makeStartable("org.gnome.ScreenSaver", "/bin/false");
    onSessionBus(freedesktop);
    EXPECT_EQ(lock(), Lines{"ScreenSaver.Lock()"});
}

TEST_F(LinuxScreenLockTest, ScreenSaverThatFailsToStartIsSkipped) {
    sessionBus.makeStartable("org.gnome.ScreenSaver", "/bin/false");
    EXPECT_EQ(lock(), (Lines{"to the main thread", "otherwise"}));
}

TEST_F(LinuxScreenLockTest, StartableScreenSaverIsStarted) {
    const test::TemporaryFolder folder;
    const auto locked = folder.path() / "locked";
    sessionBus.makeStartable("org.gnome.ScreenSaver",
                             std::string(STARTABLE_SCREEN_SAVER) + " " + locked.string());
    EXPECT_EQ(lock(), Lines());
    EXPECT_TRUE(std::filesystem::exists(locked));
}

TEST_F(LinuxScreenLockTest, ScreenSaverOfAnotherDesktopIsNotStarted) {
    const InEnvironment current("XDG_CURRENT_DESKTOP", "X-Other:MATE");
    const test::TemporaryFolder folder;
    const auto locked = folder.path() / "locked";
    sessionBus.makeStartable("org.gnome.ScreenSaver",
                             std::string(STARTABLE_SCREEN_SAVER) + " " + locked.string());
    EXPECT_EQ(lock(), (Lines{"to the main thread", "otherwise"}));
    EXPECT_FALSE(std::filesystem::exists(locked));
}

TEST_F(LinuxScreenLockTest, RunningScreenSaverOfThisDesktopIsCalledFirst) {
    const InEnvironment current("XDG_CURRENT_DESKTOP", "MATE");
    onSessionBus(gnome).refuse("Lock");
    onSessionBus(screenSaver("org.mate.ScreenSaver", "/org/mate/ScreenSaver"));
    EXPECT_EQ(lock(), Lines{"ScreenSaver.Lock()"});
}

TEST_F(LinuxScreenLockTest, FallbackRunsOnceIfNeitherBusHasAService) {
    EXPECT_EQ(lock(), (Lines{"to the main thread", "otherwise"}));
}

TEST_F(LinuxScreenLockTest, FallbackRunsWithoutABus) {
    const InEnvironment noSystem("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/nowhere/at/all");
    const InEnvironment noSession("DBUS_SESSION_BUS_ADDRESS", "no address");
    EXPECT_EQ(lock(), (Lines{"to the main thread", "otherwise"}));
}

TEST_F(LinuxScreenLockTest, EachRequestRunsItsOwnFallback) {
    LinuxScreenLock screenLock(desktop, queue, endless);
    screenLock.lock([this] { journal.add("first"); });
    screenLock.lock([this] { journal.add("second"); });
    ASSERT_TRUE(journal.waitForCount("to the main thread", 2));
    queue.runAll();
    const Lines lines = journal.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "first"), 1);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "second"), 1);
}

TEST_F(LinuxScreenLockTest, StopsWaitingForAServiceThatNeverReplies) {
    onSystemBus(logind).keepSilent("Lock");
    onSessionBus(gnome).keepSilent("Lock");
    // The fallback is not called, because the services may still lock the screen.
    const Lines expected{"login1.Lock()", "ScreenSaver.Lock()"};
    EXPECT_EQ(lockInTime(expected, withReplyLimit), expected);
    EXPECT_GE(lastTook, 2 * lastLimit);
}

// The limits are so long that the test would never end if the main thread waited.
TEST_F(LinuxScreenLockTest, MainThreadNeverWaitsForAService) {
    onSystemBus(logind).keepSilent("Lock");
    {
        LinuxScreenLock screenLock(desktop, queue, endless);
        screenLock.lock(otherwise());
        ASSERT_TRUE(journal.waitFor("login1.Lock()"));
    }
    queue.runAll();
    EXPECT_EQ(journal.lines()[0], "login1.Lock()");
    EXPECT_EQ(journal.lines()[1], "let go");
}

TEST_F(LinuxScreenLockTest, DestructionSkipsTheFallbackDuringASlowLock) {
    onSystemBus(logind);
    {
        LinuxScreenLock screenLock(desktop, queue, endless);
        screenLock.lock(otherwise());
        ASSERT_TRUE(journal.waitFor("login1 get LockedHint"));
    }
    const Lines lines = journal.lines();
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "let go"), 1);
    EXPECT_EQ(std::count(lines.begin(), lines.end(), "to the main thread"), 0);
}

TEST_F(LinuxScreenLockTest, SkipsABusThatNeverResponds) {
    const SilentSocket silent;
    const InEnvironment address("DBUS_SYSTEM_BUS_ADDRESS", silent.address().c_str());
    onSessionBus(gnome);
    const Lines expected{"ScreenSaver.Lock()"};
    EXPECT_EQ(lockInTime(expected, withReplyLimit), expected);
}

TEST_F(LinuxScreenLockTest, DestructionSkipsTheFallbackWhileABusDoesNotRespond) {
    const SilentSocket silent;
    const InEnvironment address("DBUS_SYSTEM_BUS_ADDRESS", silent.address().c_str());
    {
        LinuxScreenLock screenLock(desktop, queue, endless);
        screenLock.lock(otherwise());
        desktop.call([] {}); // waits until the request has started
    }
    EXPECT_EQ(journal.lines(), Lines{"let go"});
}

TEST_F(LinuxScreenLockTest, ScreenLockIsFoundEvenWithoutABus) {
    const test::TemporaryFolder runtime;
    const InEnvironment folder("XDG_RUNTIME_DIR", runtime.path().c_str());
    const InEnvironment systemAddress("DBUS_SYSTEM_BUS_ADDRESS", nullptr);
    const InEnvironment sessionAddress("DBUS_SESSION_BUS_ADDRESS", nullptr);
    EXPECT_TRUE(LinuxScreenLock(desktop, queue).find());
    EXPECT_EQ(journal.lines(), Lines());
}

// Provides programs that lock the session. Each test has its own display.
class SessionLockTest : public LinuxScreenLockTest {
protected:
    SessionLockTest() {
        const std::string name = testing::UnitTest::GetInstance()->current_test_info()->name();
        ownDisplay.emplace("DISPLAY", (":" + name).c_str());
        environment = {{"DISPLAY", ":" + name}};
    }

    std::string untilTheTestEnds() const { return "read end <" + leash.path.string(); }

    std::optional<InEnvironment> ownDisplay;
    test::Environment environment;
    const test::TemporaryFolder pipes;
    const test::Leash leash{pipes.path() / "leash"};
};

TEST_F(SessionLockTest, RunsTheCommandOfARunningLockerIfNoServiceLocks) {
    programs.start("xscreensaver", {}, environment);
    programs.install("xscreensaver-command");
    EXPECT_EQ(lock(), Lines());
    EXPECT_EQ(programs.ran(), "xscreensaver-command -lock\n");
}

TEST_F(SessionLockTest, CallsAServiceBeforeACommand) {
    onSessionBus(gnome);
    programs.start("xscreensaver", {}, environment);
    programs.install("xscreensaver-command");
    EXPECT_EQ(lock(), Lines{"ScreenSaver.Lock()"});
    EXPECT_EQ(programs.ran(), "");
}

TEST_F(SessionLockTest, RunsTheNextCommandIfACommandFailsOrIsMissing) {
    programs.start("light-locker", {}, environment);
    programs.start("xscreensaver", {}, environment);
    programs.start("xautolock", {}, environment);
    programs.install("xscreensaver-command", "exit 1");
    programs.install("xautolock");
    EXPECT_EQ(lock(), Lines());
    EXPECT_EQ(programs.ran(), "xscreensaver-command -lock\nxautolock -locknow\n");
}

TEST_F(SessionLockTest, FallbackRunsIfAllCommandsFail) {
    programs.start("xscreensaver", {}, environment);
    programs.install("xscreensaver-command", "exit 1");
    EXPECT_EQ(lock(), (Lines{"to the main thread", "otherwise"}));
}

TEST_F(SessionLockTest, DoesNotRunTheFallbackWhileACommandStillRuns) {
    programs.start("xscreensaver", {}, environment);
    programs.install("xscreensaver-command", untilTheTestEnds());
    Patience patience = endless;
    patience.start = 500ms;
    EXPECT_EQ(lock(patience), Lines());
}

TEST_F(SessionLockTest, DestructionSkipsTheFallbackWhileACommandRuns) {
    programs.start("xscreensaver", {}, environment);
    programs.install("xscreensaver-command", untilTheTestEnds());
    {
        LinuxScreenLock screenLock(desktop, queue, endless);
        screenLock.lock(otherwise());
        const auto deadline = std::chrono::steady_clock::now() + test::patience;
        while (programs.ran().empty() && std::chrono::steady_clock::now() < deadline) {
            std::this_thread::yield();
        }
    }
    EXPECT_EQ(journal.lines(), Lines{"let go"});
}

TEST_F(SessionLockTest, RunsTheSwayidleCommand) {
    programs.start("swayidle", {"timeout", "300", "swaylock -f -c 'a b'"}, environment);
    programs.install("swaylock", "echo >" + programs.folder() + "/end");
    EXPECT_EQ(lock(), Lines());
    const auto deadline = std::chrono::steady_clock::now() + test::patience;
    while (!std::filesystem::exists(programs.folder() + "/end") &&
           std::chrono::steady_clock::now() < deadline) {
        std::this_thread::yield();
    }
    EXPECT_EQ(programs.ran(), "swaylock -f -c a b\n");
}

// Opening a folder succeeds, and reading it fails, as for a process that has just exited.
TEST_F(SessionLockTest, LocksAlthoughAFileCannotBeRead) {
    const test::TemporaryFolder settings;
    std::filesystem::create_directories(settings.path() / "swayidle/config");
    const InEnvironment configuration("XDG_CONFIG_HOME", settings.path().c_str());
    programs.start("swayidle", {}, environment);
    EXPECT_EQ(lock(), (Lines{"to the main thread", "otherwise"}));
}

TEST_F(SessionLockTest, RunsNoCommandIfTheLockerHandlesTheLogindRequest) {
    onSystemBus(logind);
    programs.start("swayidle", {"lock", "swaylock"}, environment);
    programs.install("swaylock");
    const Lines expected{"login1.Lock()", "login1 get LockedHint"};
    EXPECT_EQ(lockInTime(expected, withLimitOnLocked, "login1 get LockedHint"), expected);
    EXPECT_EQ(programs.ran(), ""); // swayidle runs the command itself
}

TEST_F(SessionLockTest, RunsTheCommandOfALogindListenerIfLogindIsMissing) {
    programs.start("xss-lock", {"--", "i3lock"}, environment);
    programs.install("xset");
    EXPECT_EQ(lock(), Lines());
    EXPECT_EQ(programs.ran(), "xset s activate\n");
}

TEST_F(SessionLockTest, DoesNothingIfALockerAlreadyCoversTheScreen) {
    onSessionBus(gnome);
    programs.start("i3lock", {}, environment);
    EXPECT_EQ(lock(), Lines());
}

TEST_F(SessionLockTest, IgnoresALockerInAnotherSession) {
    programs.start("i3lock", {}, {{"DISPLAY", ":another"}});
    EXPECT_EQ(lock(), (Lines{"to the main thread", "otherwise"}));
}

TEST_F(SessionLockTest, RunsTheXfceLockCommand) {
    const InEnvironment current("XDG_CURRENT_DESKTOP", "XFCE");
    programs.install("xflock4");
    EXPECT_EQ(lock(), Lines());
    EXPECT_EQ(programs.ran(), "xflock4\n");
}

} // namespace
} // namespace glidemap
