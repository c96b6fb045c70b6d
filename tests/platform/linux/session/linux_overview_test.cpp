#include "desktops/fake_service.h"
#include "desktops/private_bus.h"
#include "kit/in_environment.h"
#include "kit/patience.h"
#include "kit/temporary_folder.h"
#include "platform/linux/session/linux_overview.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <chrono>
#include <deque>
#include <future>
#include <thread>

namespace glidemap {
namespace {

using namespace std::chrono_literals;
using test::FakeService;
using test::InEnvironment;
using test::Journal;
using test::PrivateBus;
using test::ServiceDescription;
using Lines = Journal::Lines;

ServiceDescription shell(const std::string& name, const std::string& path) {
    return {name, path,
            "<interface name='" + name +
                "'><property name='OverviewActive' type='b' access='readwrite'/></interface>"};
}

const ServiceDescription gnome = shell("org.gnome.Shell", "/org/gnome/Shell");
const ServiceDescription cinnamon = shell("org.Cinnamon", "/org/Cinnamon");
ServiceDescription kwinReplying(const std::string& type) {
    return {"org.kde.kglobalaccel", "/component/kwin",
            "<interface name='org.kde.kglobalaccel.Component'><method name='shortcutNames'>"
            "<arg type='" +
                type +
                "' direction='out'/></method><method name='invokeShortcut'>"
                "<arg type='s' direction='in'/></method></interface>"};
}

const ServiceDescription kwin = kwinReplying("as");

FakeService::Method names(const char* values) {
    return [values] {
        return g_variant_new_parsed(values);
    };
}

class LinuxOverviewTest : public testing::Test {
protected:
    FakeService& onBus(const ServiceDescription& service) {
        return services.emplace_back(bus.address(), service, journal);
    }

    // Toggles the overview, waits until the last client of the service `askedLast` has left the
    // bus, and returns the events without the clients' departures.
    Lines toggle(const std::string& askedLast) {
        LinuxOverview overview(desktop, 600s);
        overview.toggle();
        EXPECT_TRUE(journal.waitFor(askedLast + ": no callers left"));
        Lines lines = journal.lines();
        std::erase_if(lines,
                      [](const std::string& line) { return line.ends_with("no callers left"); });
        return lines;
    }

    static bool becomes(bool wanted, LinuxOverview& overview) {
        const auto deadline = std::chrono::steady_clock::now() + test::patience;
        while (std::chrono::steady_clock::now() < deadline) {
            if (overview.mayExist() == wanted) {
                return true;
            }
            std::this_thread::yield();
        }
        return false;
    }

    Journal journal;
    PrivateBus bus;
    InEnvironment address{"DBUS_SESSION_BUS_ADDRESS", bus.address().c_str()};
    std::deque<FakeService> services;
    DesktopThread desktop;
};

TEST_F(LinuxOverviewTest, ShowsTheGNOMEOverview) {
    FakeService& gnomeShell = onBus(gnome);
    EXPECT_EQ(toggle("Shell"),
              (Lines{"Shell get OverviewActive", "Shell set OverviewActive true"}));
    EXPECT_TRUE(gnomeShell.property("OverviewActive"));
}

TEST_F(LinuxOverviewTest, HidesAVisibleOverview) {
    FakeService& gnomeShell = onBus(gnome);
    gnomeShell.set("OverviewActive", true);
    EXPECT_EQ(toggle("Shell"),
              (Lines{"Shell get OverviewActive", "Shell set OverviewActive false"}));
    EXPECT_FALSE(gnomeShell.property("OverviewActive"));
}

TEST_F(LinuxOverviewTest, ShowsTheCinnamonOverview) {
    onBus(cinnamon);
    EXPECT_EQ(toggle("Cinnamon"),
              (Lines{"Cinnamon get OverviewActive", "Cinnamon set OverviewActive true"}));
}

TEST_F(LinuxOverviewTest, InvokesTheKWinShortcut) {
    onBus(kwin).answer("shortcutNames", names("(['Expose', 'Overview', 'Show Desktop'],)"));
    EXPECT_EQ(toggle("kglobalaccel"),
              (Lines{"kglobalaccel.shortcutNames()", "kglobalaccel.invokeShortcut('Overview',)"}));
}

// KWin reports success even for a shortcut that it does not have.
TEST_F(LinuxOverviewTest, DoesNotInvokeAMissingKWinShortcut) {
    struct Row {
        const char* what;
        FakeService::Method answer;
        const char* type = "as";
    };
    const Row rows[] = {
        {"no shortcut at all", names("(@as [],)")},
        {"similar shortcuts",
         names("(['Overview2', 'overview', 'ShowOverview', 'Window Overview'],)")},
        {"a reply of another type", names("('Overview',)"), "s"},
        {"an error",
         [] {
             return nullptr;
         }},
    };
    for (const Row& row : rows) {
        Journal asked;
        FakeService component(bus.address(), kwinReplying(row.type), asked);
        component.answer("shortcutNames", row.answer);
        LinuxOverview overview(desktop, 600s);
        overview.toggle();
        EXPECT_TRUE(asked.waitFor("kglobalaccel: no callers left"));
        EXPECT_EQ(asked.lines(),
                  (Lines{"kglobalaccel.shortcutNames()", "kglobalaccel: no callers left"}))
            << row.what;
    }
}

TEST_F(LinuxOverviewTest, CallsTheNextShellIfAShellHasNoOverview) {
    onBus({"org.gnome.Shell", "/org/gnome/Shell",
           "<interface name='org.gnome.Shell'><method name='Other'/></interface>"});
    onBus(kwin).answer("shortcutNames", names("(['Overview'],)"));
    EXPECT_EQ(toggle("kglobalaccel"),
              (Lines{"kglobalaccel.shortcutNames()", "kglobalaccel.invokeShortcut('Overview',)"}));
}

// Each lookup opens a connection, and the bus limits the number of connections.
TEST_F(LinuxOverviewTest, QueriesShareAPendingLookup) {
    onBus(gnome);
    LinuxOverview overview(desktop, 600s);
    std::promise<void> gate;
    desktop.submit([opened = gate.get_future().share()] { opened.wait(); });
    for (int question = 0; question < 1000; ++question) {
        EXPECT_TRUE(overview.mayExist());
    }
    gate.set_value();
    EXPECT_TRUE(journal.waitFor("Shell: no callers left"));
    EXPECT_EQ(journal.lines(), (Lines{"Shell get OverviewActive", "Shell: no callers left"}));
}

TEST_F(LinuxOverviewTest, FirstLookupDetectsAMissingOverview) {
    LinuxOverview overview(desktop, 600s);
    EXPECT_TRUE(overview.mayExist());
    EXPECT_TRUE(becomes(false, overview));
    onBus(gnome);
    EXPECT_TRUE(becomes(true, overview));
}

TEST_F(LinuxOverviewTest, LookupDoesNotShowTheOverview) {
    FakeService& gnomeShell = onBus(gnome);
    LinuxOverview overview(desktop, 600s);
    overview.mayExist();
    EXPECT_TRUE(journal.waitFor("Shell: no callers left"));
    EXPECT_FALSE(gnomeShell.property("OverviewActive"));
    EXPECT_TRUE(overview.mayExist());
}

TEST_F(LinuxOverviewTest, DestructionDoesNotWaitForAReply) {
    onBus(kwin).keepSilent("shortcutNames");
    {
        LinuxOverview overview(desktop, 600s);
        overview.toggle();
        ASSERT_TRUE(journal.waitFor("kglobalaccel.shortcutNames()"));
    }
    EXPECT_TRUE(journal.waitFor("kglobalaccel: no callers left"));
}

TEST_F(LinuxOverviewTest, DoesNotStartGNOMEShellOnAnotherDesktop) {
    const test::TemporaryFolder folder;
    const auto started = folder.path() / "started";
    bus.makeStartable("org.gnome.Shell", "/usr/bin/touch " + started.string());
    onBus(cinnamon);
    EXPECT_EQ(toggle("Cinnamon"),
              (Lines{"Cinnamon get OverviewActive", "Cinnamon set OverviewActive true"}));
    EXPECT_FALSE(std::filesystem::exists(started));
}

} // namespace
} // namespace glidemap
