#include "desktops/fake_service.h"
#include "desktops/private_bus.h"
#include "desktops/silent_socket.h"
#include "kit/fake_main_queue.h"
#include "kit/in_environment.h"
#include "kit/patience.h"
#include "kit/temporary_folder.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/shell/portal_appearance.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <filesystem>

namespace glidemap {
namespace {

using test::FakeService;
using test::InEnvironment;
using test::Journal;
using test::PrivateBus;
using test::ServiceDescription;
using Lines = Journal::Lines;

constexpr const char* settingsInterface = "org.freedesktop.portal.Settings";
constexpr const char* common = "org.freedesktop.appearance";
constexpr const char* asked = "Desktop.ReadAll(['org.freedesktop.appearance', "
                              "'org.gnome.desktop.interface', 'org.kde.kdeglobals.KDE'],)";

// `answer` is the reply to ReadAll, in GLib's text format.
ServiceDescription portalReplying(const char* answer, const std::string& type = "a{sa{sv}}") {
    ServiceDescription portal{
        "org.freedesktop.portal.Desktop", "/org/freedesktop/portal/desktop",
        "<interface name='org.freedesktop.portal.Settings'>"
        "<method name='ReadAll'><arg type='as' direction='in'/><arg type='" +
            type +
            "' direction='out'/></method>"
            "<signal name='SettingChanged'><arg type='s'/><arg type='s'/><arg type='v'/></signal>"
            "</interface>"};
    portal.methods["ReadAll"] = [answer] {
        return g_variant_new_parsed(answer);
    };
    return portal;
}

constexpr const char* nothing = "(@a{sa{sv}} {},)";
constexpr const char* dark =
    "({'org.freedesktop.appearance': {'color-scheme': <uint32 1>, 'contrast': <uint32 0>}},)";
constexpr const char* lightWithReducedMotion =
    "({'org.gnome.desktop.interface': {'clock-format': <'24h'>, 'enable-animations': <false>},"
    "  'org.freedesktop.appearance': {'color-scheme': <uint32 2>}},)";

std::string described(const AppearanceSettings& settings) {
    const auto scheme = settings.colorScheme();
    return std::string(!scheme                        ? "unknown"
                       : *scheme == ColorScheme::dark ? "dark"
                                                      : "light") +
           (settings.reducesMotion() ? ", still" : "");
}

class PortalAppearanceTest : public testing::Test {
protected:
    FakeService& onBus(const ServiceDescription& portal) {
        return *(service = std::make_unique<FakeService>(bus.address(), portal, journal));
    }

    static void change(FakeService& portal, const char* group, const char* key, const char* value) {
        portal.announce(settingsInterface, "SettingChanged",
                        g_variant_new("(ssv)", group, key, g_variant_new_parsed(value)));
    }

    // Returns the appearance on the main thread after the next update.
    std::string next(const PortalAppearance& appearance) {
        EXPECT_TRUE(queue.waitForOne());
        EXPECT_EQ(queue.runAll(), 1U);
        return described(*appearance.settings());
    }

    Journal journal;
    PrivateBus bus;
    InEnvironment address{"DBUS_SESSION_BUS_ADDRESS", bus.address().c_str()};
    std::unique_ptr<FakeService> service;
    DesktopThread desktop;
    test::FakeMainQueue queue;
};

TEST_F(PortalAppearanceTest, QueriesARunningPortalOnce) {
    onBus(portalReplying(dark));
    const PortalAppearance appearance(desktop, queue);
    EXPECT_EQ(described(*appearance.settings()), "unknown");
    EXPECT_EQ(next(appearance), "dark");
    EXPECT_EQ(journal.lines(), Lines{asked});
}

TEST_F(PortalAppearanceTest, AllSettingsArriveInOneUpdate) {
    onBus(portalReplying(lightWithReducedMotion));
    const PortalAppearance appearance(desktop, queue);
    EXPECT_EQ(next(appearance), "light, still");
}

TEST_F(PortalAppearanceTest, ObserversAreNotifiedBeforeAndAfterAChange) {
    onBus(portalReplying(dark));
    const PortalAppearance appearance(desktop, queue);
    const auto settings = appearance.settings();
    Lines updates;
    const auto watch =
        settings->changes().subscribe([&] { updates.push_back("will: " + described(*settings)); },
                                      [&] { updates.push_back("did: " + described(*settings)); });
    ASSERT_TRUE(queue.waitForOne());
    EXPECT_EQ(updates, Lines());
    queue.runAll();
    EXPECT_EQ(updates, (Lines{"will: unknown", "did: dark"}));
}

TEST_F(PortalAppearanceTest, FollowsChanges) {
    FakeService& portal = onBus(portalReplying(dark));
    const PortalAppearance appearance(desktop, queue);
    EXPECT_EQ(next(appearance), "dark");
    change(portal, common, "color-scheme", "uint32 2");
    EXPECT_EQ(next(appearance), "light");
    change(portal, "org.kde.kdeglobals.KDE", "AnimationDurationFactor", "'0'");
    EXPECT_EQ(next(appearance), "light, still");
    change(portal, common, "color-scheme", "uint32 0");
    EXPECT_EQ(next(appearance), "unknown, still");
    EXPECT_EQ(journal.lines(), Lines{asked});
}

TEST_F(PortalAppearanceTest, UnrelatedOrUnchangedSettingsDoNotWakeTheMainThread) {
    FakeService& portal = onBus(portalReplying(dark));
    const PortalAppearance appearance(desktop, queue);
    EXPECT_EQ(next(appearance), "dark");
    change(portal, "org.gnome.desktop.interface", "clock-format", "'12h'");
    change(portal, common, "accent-color", "(0.1, 0.2, 0.3)");
    change(portal, common, "color-scheme", "uint32 1");
    portal.announce(settingsInterface, "SettingChanged", g_variant_new("(s)", common));
    portal.announce(settingsInterface, "Other",
                    g_variant_new("(ssv)", common, "color-scheme", g_variant_new_uint32(0)));
    change(portal, common, "color-scheme", "uint32 2");
    EXPECT_EQ(next(appearance), "light"); // the only update
}

TEST_F(PortalAppearanceTest, IgnoresSignalsThatThePortalDidNotSend) {
    onBus(portalReplying(dark));
    const PortalAppearance appearance(desktop, queue);
    EXPECT_EQ(next(appearance), "dark");
    auto other = portalReplying(nothing);
    other.name = "org.example.Other";
    FakeService stranger(bus.address(), other, journal);
    change(stranger, common, "color-scheme", "uint32 2");
    change(*service, "org.gnome.desktop.interface", "enable-animations", "false");
    EXPECT_EQ(next(appearance), "dark, still");
}

TEST_F(PortalAppearanceTest, WaitsForAMissingPortalWithoutStartingIt) {
    const test::TemporaryFolder folder;
    const auto started = folder.path() / "started";
    bus.makeStartable("org.freedesktop.portal.Desktop", "/usr/bin/touch " + started.string());
    const PortalAppearance appearance(desktop, queue);
    desktop.call([] {}); // waits until the object has started
    onBus(portalReplying(dark));
    EXPECT_EQ(next(appearance), "dark");
    EXPECT_FALSE(std::filesystem::exists(started));
}

TEST_F(PortalAppearanceTest, KeepsSettingsOfALostPortalUntilTheNextPortalReports) {
    onBus(portalReplying(dark));
    const PortalAppearance appearance(desktop, queue);
    EXPECT_EQ(next(appearance), "dark");
    service.reset();
    onBus(portalReplying(lightWithReducedMotion));
    EXPECT_EQ(next(appearance), "light, still");
    FakeService& portal = *service;
    change(portal, common, "color-scheme", "uint32 1");
    EXPECT_EQ(next(appearance), "dark, still");
    service.reset();
    onBus(portalReplying(nothing));
    EXPECT_EQ(next(appearance), "unknown");
}

TEST_F(PortalAppearanceTest, FollowsChangesOfAPortalWhoseReadAllFails) {
    struct Row {
        const char* what;
        const char* answer;
        const char* type;
    };
    const Row rows[] = {
        {"a reply of another type", "('dark',)", "s"},
        {"values that are not variants", "({'org.freedesktop.appearance': {'color-scheme': 1}},)",
         "a{sa{si}}"},
        {"an error", nullptr, "s"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Journal calls;
        auto description = portalReplying(row.answer, row.type);
        if (row.answer == nullptr) {
            description.methods["ReadAll"] = [] {
                return nullptr;
            };
        }
        FakeService portal(bus.address(), description, calls);
        const PortalAppearance appearance(desktop, queue);
        ASSERT_TRUE(calls.waitFor(asked));
        change(portal, common, "color-scheme", "uint32 1");
        EXPECT_EQ(next(appearance), "dark");
    }
}

TEST_F(PortalAppearanceTest, DestructionDoesNotWaitForAPendingReply) {
    onBus(portalReplying(dark)).keepSilent("ReadAll");
    {
        const PortalAppearance appearance(desktop, queue);
        ASSERT_TRUE(journal.waitFor(asked));
    }
    EXPECT_TRUE(journal.waitFor("Desktop: no callers left"));
    EXPECT_EQ(queue.runAll(), 0U);
}

TEST_F(PortalAppearanceTest, SettingsKeepTheirLastValuesAfterDestruction) {
    onBus(portalReplying(dark));
    std::shared_ptr<AppearanceSettings> settings;
    {
        const PortalAppearance appearance(desktop, queue);
        settings = appearance.settings();
        EXPECT_EQ(next(appearance), "dark");
    }
    EXPECT_TRUE(journal.waitFor("Desktop: no callers left"));
    EXPECT_EQ(described(*settings), "dark");
}

TEST_F(PortalAppearanceTest, DropsAnUpdateQueuedBeforeDestruction) {
    onBus(portalReplying(dark));
    {
        const PortalAppearance appearance(desktop, queue);
        ASSERT_TRUE(queue.waitForOne());
    }
    EXPECT_EQ(queue.runAll(), 1U);
}

TEST_F(PortalAppearanceTest, KeepsSettingsWhenTheBusIsLost) {
    onBus(portalReplying(dark));
    const PortalAppearance appearance(desktop, queue);
    EXPECT_EQ(next(appearance), "dark");
    bus.kill();
    EXPECT_EQ(described(*appearance.settings()), "dark");
}

// If the desktop thread waited for the bus, this test would never end: call() and the destructor
// wait for the desktop thread.
TEST_F(PortalAppearanceTest, SettingsAreUnknownWithoutABus) {
    const test::SilentSocket silent;
    for (const std::string& unusable :
         {std::string("unix:path=/nowhere/at/all"), std::string("no address"), silent.address()}) {
        const InEnvironment none("DBUS_SESSION_BUS_ADDRESS", unusable.c_str());
        const PortalAppearance appearance(desktop, queue);
        desktop.call([] {}); // waits until the object has started
        EXPECT_EQ(described(*appearance.settings()), "unknown");
    }
    EXPECT_EQ(queue.runAll(), 0U);
}

} // namespace
} // namespace glidemap
