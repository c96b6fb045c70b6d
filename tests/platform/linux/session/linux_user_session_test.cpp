// Tests the user session on private buses, with fakes of logind and of screen savers.
#include "desktops/fake_service.h"
#include "desktops/private_bus.h"
#include "desktops/silent_socket.h"
#include "kit/fake_main_queue.h"
#include "kit/in_environment.h"
#include "platform/linux/session/linux_user_session.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <deque>
#include <memory>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using test::FakeService;
using test::InEnvironment;
using test::Journal;
using test::PrivateBus;
using test::ServiceDescription;
using test::SilentSocket;

constexpr const char* sessionInterface = "org.freedesktop.login1.Session";
constexpr const char* sessionPath = "/org/freedesktop/login1/session/_31";

const ServiceDescription logind{"org.freedesktop.login1", "/org/freedesktop/login1/session/auto",
                                "<interface name='org.freedesktop.login1.Session'>"
                                "<property name='Active' type='b' access='read'/>"
                                "<property name='LockedHint' type='b' access='read'/>"
                                "<property name='State' type='s' access='read'/></interface>"
                                "<interface name='org.freedesktop.login1.Manager'>"
                                "<signal name='PrepareForSleep'><arg type='b'/></signal>"
                                "</interface>"};

struct Saver {
    const char* name;
    const char* path;
};
constexpr Saver allSavers[] = {
    {"org.gnome.ScreenSaver", "/org/gnome/ScreenSaver"},
    {"org.cinnamon.ScreenSaver", "/org/cinnamon/ScreenSaver"},
    {"org.mate.ScreenSaver", "/org/mate/ScreenSaver"},
    {"org.xfce.ScreenSaver", "/org/xfce/ScreenSaver"},
    {"org.freedesktop.ScreenSaver", "/ScreenSaver"},
};

// A fake screen saver that returns its state and announces changes.
class FakeSaver {
public:
    FakeSaver(const PrivateBus& bus, const Saver& whose, bool active, Journal& journal)
        : saver(whose), isActive(active), service(bus.address(), description(), journal) {}

    void become(bool active) {
        isActive = active;
        service.announce(saver.name, "ActiveChanged", asValues());
    }

    void announce(GVariant* values) { service.announce(saver.name, "ActiveChanged", values); }

private:
    GVariant* asValues() const { return g_variant_new("(b)", isActive ? TRUE : FALSE); }

    ServiceDescription description() const {
        return {saver.name,
                saver.path,
                "<interface name='" + std::string(saver.name) +
                    "'><method name='GetActive'><arg type='b' direction='out'/></method>"
                    "<signal name='ActiveChanged'><arg type='b'/></signal></interface>",
                {{"GetActive", [this] {
                      return asValues();
                  }}}};
    }

    const Saver saver;
    std::atomic<bool> isActive;
    FakeService service;
};

class LinuxUserSessionTest : public testing::Test {
protected:
    FakeService& startLogind(bool isActive, bool isLocked) {
        // The properties are part of the description, so that they are set before the service
        // acquires its name.
        ServiceDescription service = logind;
        service.properties = {{"Active", isActive}, {"LockedHint", isLocked}};
        service.texts = {{"State", isActive ? "active" : "online"}};
        return services.emplace_back(systemBus.address(), service, journal);
    }

    void announce(FakeService& manager, const std::string& property, bool value) {
        manager.setAndAnnounce(property, value, sessionInterface, sessionPath);
    }

    static void announceSleep(FakeService& manager, bool sleeps) {
        manager.announce("org.freedesktop.login1.Manager", "PrepareForSleep",
                         g_variant_new("(b)", sleeps ? TRUE : FALSE));
    }

    // Waits for the state. The session changes its state before it sends the notification.
    bool become(const LinuxUserSession& session, bool isActive, bool isLocked) {
        while (session.isActive() != isActive || session.isLocked() != isLocked) {
            if (!journal.waitForCount("changed", ++changes)) {
                return false;
            }
        }
        return true;
    }

    // Waits for this number of notifications. Returns false if there are more.
    bool wasNotified(long count) {
        if (!journal.waitForCount("changed", count)) {
            return false;
        }
        const Journal::Lines lines = journal.lines();
        return std::ranges::count(lines, "changed") == count;
    }

    bool sleepIs(const LinuxUserSession& session, bool expected) {
        for (queue->runAll(); session.isAsleep() != expected; queue->runAll()) {
            if (!journal.waitForCount("changed", ++changes)) {
                return false;
            }
        }
        return true;
    }

    Journal journal;
    long changes = 0;
    PrivateBus systemBus;
    PrivateBus sessionBus;
    InEnvironment system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address().c_str()};
    InEnvironment sessionAddress{"DBUS_SESSION_BUS_ADDRESS", sessionBus.address().c_str()};
    std::deque<FakeService> services;
    std::deque<FakeSaver> savers;
    std::shared_ptr<test::FakeMainQueue> queue =
        std::make_shared<test::FakeMainQueue>([this] { journal.add("changed"); });
    DesktopThread desktop;
};

TEST_F(LinuxUserSessionTest, TracksWhetherTheSessionIsActive) {
    FakeService& manager = startLogind(true, false);
    const LinuxUserSession session(desktop, queue);
    EXPECT_TRUE(session.isActive());
    ASSERT_TRUE(journal.waitForCount("login1 get Active", 2)) << "the watch is set";
    manager.setText("State", "online");
    announce(manager, "Active", false);
    EXPECT_TRUE(become(session, false, false));
    manager.setText("State", "active");
    announce(manager, "Active", true);
    EXPECT_TRUE(become(session, true, false));
}

TEST_F(LinuxUserSessionTest, DetectsAnInitiallyInactiveSession) {
    startLogind(false, true);
    const LinuxUserSession session(desktop, queue);
    EXPECT_TRUE(become(session, false, true));
}

TEST_F(LinuxUserSessionTest, FollowsSuspendAndResume) {
    FakeService& manager = startLogind(true, true);
    const LinuxUserSession session(desktop, queue);
    EXPECT_FALSE(session.isAsleep());
    ASSERT_TRUE(become(session, true, true));
    ASSERT_TRUE(journal.waitForCount("login1 get Active", 2)) << "the watch is set";
    announceSleep(manager, true);
    EXPECT_TRUE(sleepIs(session, true));
    announce(manager, "LockedHint", false);
    EXPECT_TRUE(become(session, true, false));
    EXPECT_TRUE(session.isAsleep()) << "what is read meanwhile does not wake it";
    announceSleep(manager, false);
    EXPECT_TRUE(sleepIs(session, false));
}

// logind sends a signal before the suspend and another after the resume. If the kernel freezes the
// process before it has read the first signal, the process reads both after the resume.
TEST_F(LinuxUserSessionTest, ReportsASuspendThatEndsBeforeTheMainThreadRuns) {
    FakeService& manager = startLogind(true, false);
    LinuxUserSession session(desktop, queue);
    std::vector<bool> notified;
    const Subscription toSession =
        session.changes().subscribe({}, [&] { notified.push_back(session.isAsleep()); });
    ASSERT_TRUE(journal.waitForCount("login1 get Active", 2));
    announceSleep(manager, true);
    announceSleep(manager, false);
    ASSERT_TRUE(journal.waitForCount("changed", 2));
    queue->runAll();
    EXPECT_EQ(notified, (std::vector{true, false}));
}

TEST_F(LinuxUserSessionTest, ExitOfLogindDuringSuspendCountsAsResume) {
    FakeService& manager = startLogind(true, false);
    const LinuxUserSession session(desktop, queue);
    ASSERT_TRUE(journal.waitForCount("login1 get Active", 2));
    announceSleep(manager, true);
    ASSERT_TRUE(sleepIs(session, true));
    services.clear();
    EXPECT_TRUE(sleepIs(session, false));
}

TEST_F(LinuxUserSessionTest, FollowsTheLockedHint) {
    FakeService& manager = startLogind(true, false);
    const LinuxUserSession session(desktop, queue);
    ASSERT_TRUE(journal.waitForCount("login1 get Active", 2));
    announce(manager, "LockedHint", true);
    EXPECT_TRUE(become(session, true, true));
    announce(manager, "LockedHint", false);
    EXPECT_TRUE(become(session, true, false));
}

TEST_F(LinuxUserSessionTest, InactiveSessionThatIsClosingCountsAsActive) {
    FakeService& manager = startLogind(false, false);
    const LinuxUserSession session(desktop, queue);
    EXPECT_TRUE(become(session, false, false));
    manager.setText("State", "closing");
    announce(manager, "Active", false);
    EXPECT_TRUE(become(session, true, false));
}

TEST_F(LinuxUserSessionTest, SessionIsActiveUntilLogindStartsAndReportsOtherwise) {
    const LinuxUserSession session(desktop, queue);
    EXPECT_TRUE(session.isActive());
    EXPECT_FALSE(session.isLocked());
    startLogind(false, false);
    EXPECT_TRUE(become(session, false, false));
    services.clear(); // logind stops, and is started again below
    startLogind(true, false);
    EXPECT_TRUE(become(session, true, false));
}

TEST_F(LinuxUserSessionTest, FollowsTheScreenSaverOfEachDesktop) {
    const LinuxUserSession session(desktop, queue);
    for (const Saver& each : allSavers) {
        {
            FakeSaver saver(sessionBus, each, true, journal);
            EXPECT_TRUE(become(session, true, true)) << each.name << " is active on startup";
            saver.become(false);
            EXPECT_TRUE(become(session, true, false)) << each.name;
            saver.become(true);
            EXPECT_TRUE(become(session, true, true)) << each.name;
        }
        EXPECT_TRUE(become(session, true, false)) << each.name << " has exited";
    }
}

TEST_F(LinuxUserSessionTest, InitiallyActiveScreenSaverIsDetected) {
    savers.emplace_back(sessionBus, allSavers[4], true, journal);
    const LinuxUserSession session(desktop, queue);
    EXPECT_TRUE(become(session, true, true));
}

TEST_F(LinuxUserSessionTest, SessionIsLockedWhileAnySourceReportsLocked) {
    FakeService& manager = startLogind(true, true);
    FakeSaver& gnome = savers.emplace_back(sessionBus, allSavers[0], true, journal);
    FakeSaver& mate = savers.emplace_back(sessionBus, allSavers[2], false, journal);
    const LinuxUserSession session(desktop, queue);
    ASSERT_TRUE(journal.waitForCount("changed", 2)) << "the hint, and GNOME's screen saver";
    mate.become(true);
    mate.become(false);
    gnome.become(false);
    ASSERT_TRUE(journal.waitForCount("changed", 3));
    EXPECT_TRUE(session.isLocked());
    announce(manager, "LockedHint", false);
    EXPECT_TRUE(become(session, true, false));
}

TEST_F(LinuxUserSessionTest, IgnoresSignalsThatTheScreenSaverDidNotSend) {
    FakeSaver& mate = savers.emplace_back(sessionBus, allSavers[2], true, journal);
    const LinuxUserSession session(desktop, queue);
    ASSERT_TRUE(become(session, true, true));
    ASSERT_TRUE(journal.waitForCount("ScreenSaver.GetActive()", 1)) << "the watch is set";
    for (const Saver& each : allSavers) {
        for (const gboolean isActive : {gboolean{FALSE}, gboolean{TRUE}}) {
            g_dbus_connection_emit_signal(sessionBus.connection(), nullptr, each.path, each.name,
                                          "ActiveChanged", g_variant_new("(b)", isActive), nullptr);
        }
    }
    g_dbus_connection_flush_sync(sessionBus.connection(), nullptr, nullptr);
    mate.become(false);
    EXPECT_TRUE(become(session, true, false))
        << "the signal of another program would have locked it";
    EXPECT_TRUE(wasNotified(2)) << "the signal of another program would have unlocked it";
}

TEST_F(LinuxUserSessionTest, InvalidSignalsAreIgnored) {
    FakeSaver& cinnamon = savers.emplace_back(sessionBus, allSavers[1], false, journal);
    const LinuxUserSession session(desktop, queue);
    ASSERT_TRUE(journal.waitForCount("ScreenSaver.GetActive()", 1)) << "the watch is set";
    cinnamon.announce(g_variant_new("(s)", "true"));
    cinnamon.announce(nullptr);
    cinnamon.become(true);
    EXPECT_TRUE(become(session, true, true));
    EXPECT_TRUE(wasNotified(1));
    FakeService& manager = startLogind(true, false);
    ASSERT_TRUE(journal.waitForCount("login1 get Active", 1));
    manager.announce("org.freedesktop.login1.Manager", "PrepareForSleep",
                     g_variant_new("(s)", "true"));
    announce(manager, "LockedHint", true);
    cinnamon.become(false);
    ASSERT_TRUE(journal.waitForCount("login1 get LockedHint", 2));
    EXPECT_FALSE(session.isAsleep());
}

TEST_F(LinuxUserSessionTest, NotifiesOnTheMainThreadUntilDestruction) {
    FakeService& manager = startLogind(true, false);
    int reported = 0;
    {
        LinuxUserSession session(desktop, queue);
        const Subscription toSession = session.changes().subscribe({}, [&] { ++reported; });
        ASSERT_TRUE(journal.waitForCount("login1 get Active", 2));
        announce(manager, "LockedHint", true);
        ASSERT_TRUE(become(session, true, true));
        EXPECT_EQ(reported, 0);
        queue->runAll();
        EXPECT_EQ(reported, 1);
        announce(manager, "LockedHint", false);
        ASSERT_TRUE(become(session, true, false));
    }
    queue->runAll();
    EXPECT_EQ(reported, 1);
}

TEST_F(LinuxUserSessionTest, ConstructionAndDestructionDoNotWaitForSilentBuses) {
    const SilentSocket silent;
    const InEnvironment systemAddress("DBUS_SYSTEM_BUS_ADDRESS", silent.address().c_str());
    const InEnvironment address("DBUS_SESSION_BUS_ADDRESS", silent.address().c_str());
    const auto began = std::chrono::steady_clock::now();
    {
        const LinuxUserSession session(desktop, queue);
        EXPECT_TRUE(session.isActive());
        EXPECT_FALSE(session.isLocked());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - began, std::chrono::seconds(30))
        << "the patience with a service is a minute";
}

} // namespace
} // namespace glidemap
