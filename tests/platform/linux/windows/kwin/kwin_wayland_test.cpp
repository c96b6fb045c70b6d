#include "desktops/fake_window_listener.h"
#include "desktops/kwin.h"
#include "desktops/listening.h"
#include "desktops/scoped_environment.h"
#include "desktops/window.h"
#include "platform/linux/windows/kwin/kwin_script.h"
#include "platform/linux/windows/kwin/kwin_window_backend.h"

#include <gio/gio.h>
#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <regex>
#include <string>

namespace glidemap {

namespace {

using Listening = test::Listening<KWinWindowBackend>;
using test::Environment;
using test::FakeWindowListener;
using test::KWin;
using test::RuntimeFolder;
using test::ScopedEnvironment;
using test::Window;

class KWinWaylandTest : public testing::Test {
protected:
    void SetUp() override {
        if (!KWin::isInstalled()) {
            GTEST_SKIP() << "no kwin_wayland is installed";
        }
        kwin.emplace();
        here.emplace(kwin->environment());
    }

    void startKWin() {
        kwin->start();
        kwin->waitUntilReady();
    }

    Window open(const std::string& appID, const std::string& title = "Title") {
        return Window(kwin->environment(), appID, title);
    }

    // KWin 5 and KWin 6 export scripts at different paths.
    long countOfScripts() {
        long count = 0;
        for (const char* const at : {"/", "/Scripting"}) {
            GVariant* const answer = kwin->bus().call(
                "org.kde.KWin", at, "org.freedesktop.DBus.Introspectable", "Introspect", nullptr);
            const char* text = nullptr;
            g_variant_get(answer, "(&s)", &text);
            const std::string nodes = text;
            const std::regex script("<node name=\"(Script)?[0-9]+\"");
            count += std::distance(std::sregex_iterator(nodes.begin(), nodes.end(), script), {});
            g_variant_unref(answer);
        }
        return count;
    }

    // Loads and runs a script that does nothing, as another program could. Returns its number.
    int loadOtherScript(const std::string& name) {
        const std::filesystem::path file =
            std::filesystem::path(kwin->environment().at("XDG_RUNTIME_DIR")) / (name + ".qs");
        std::ofstream(file) << "const nothing = 0;\n";
        GVariant* const loaded =
            kwin->bus().call("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting", "loadScript",
                             g_variant_new("(ss)", file.c_str(), name.c_str()));
        int number = -1;
        g_variant_get(loaded, "(i)", &number);
        g_variant_unref(loaded);
        g_variant_unref(kwin->bus().call("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting",
                                         "start", nullptr));
        return number;
    }

    void unloadOtherScript(const std::string& name) {
        const long before = countOfScripts();
        g_variant_unref(kwin->bus().call("org.kde.KWin", "/Scripting", "org.kde.kwin.Scripting",
                                         "unloadScript", g_variant_new("(s)", name.c_str())));
        waitUntilScriptsAre(before - 1);
    }

    // KWin deletes a script some time after it has replied.
    void waitUntilScriptsAre(long count) {
        const auto deadline = std::chrono::steady_clock::now() + test::patience;
        while (countOfScripts() != count) {
            ASSERT_LT(std::chrono::steady_clock::now(), deadline) << countOfScripts();
        }
    }

    std::optional<KWin> kwin;
    std::optional<ScopedEnvironment> here;
    FakeWindowListener reported;
};

TEST_F(KWinWaylandTest, ReportsFocusChangesWhenWindowsOpenAndClose) {
    startKWin();
    const Listening listening(reported);
    EXPECT_TRUE(listening.started);
    reported.expectReported({"windows:", "active: none"});
    Window first = open("first");
    reported.expectReported({"windows: first", "active: first"});
    Window second = open("org.example.Second");
    reported.expectReported({"windows: first, org.example.Second", "active: org.example.Second"});
    second.close();
    reported.expectReported({"windows: first", "active: first"});
    first.close();
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(KWinWaylandTest, ReportsAllPropertiesOfAWindowThatIsAlreadyOpen) {
    startKWin();
    Window window = open("org.example.Editor", "A text — Editor");
    const Listening listening(reported);
    reported.expectReported({"windows: org.example.Editor", "active: org.example.Editor"});
    EXPECT_THAT(reported.windows(),
                testing::ElementsAre(WindowIdentity{"org.example.Editor", "glidemap-test-window",
                                                    "A text — Editor", window.process()}));
}

TEST_F(KWinWaylandTest, FollowsAKWinThatStartsAfterTheBackendAndRestarts) {
    const Listening listening(reported);
    EXPECT_TRUE(listening.started);
    reported.expectReported({"windows:", "active: none"});
    startKWin();
    {
        Window first = open("first");
        reported.expectReported({"windows: first", "active: first"});
        kwin->kill();
        reported.expectReported({"windows:", "active: none"});
    }
    startKWin();
    Window second = open("second");
    reported.expectReported({"windows: second", "active: second"});
}

// A backend that is destroyed must unload only its own script.
TEST_F(KWinWaylandTest, SecondBackendKeepsItsScriptWhenTheFirstBackendIsDestroyed) {
    startKWin();
    FakeWindowListener reportedFirst;
    auto first = std::make_unique<Listening>(reportedFirst);
    reportedFirst.expectReported({"windows:", "active: none"});
    const Listening second(reported);
    reported.expectReported({"windows:", "active: none"});
    const long both = countOfScripts();
    first.reset();
    waitUntilScriptsAre(both - 1);
    const Window window = open("window");
    reported.expectReported({"windows: window", "active: window"});
}

TEST_F(KWinWaylandTest, DestructorUnloadsTheScriptAndLeavesNoFile) {
    startKWin();
    const long before = countOfScripts();
    {
        const Listening listening(reported);
        reported.expectReported({"windows:", "active: none"});
        waitUntilScriptsAre(before + 1);
    }
    waitUntilScriptsAre(before);
    for (const auto& entry :
         std::filesystem::directory_iterator(kwin->environment().at("XDG_RUNTIME_DIR"))) {
        EXPECT_NE(entry.path().extension(), ".js") << entry.path();
    }
}

// KWin numbers a script by the count of scripts. After the first script is unloaded, the next one
// gets the number that the second one still has.
TEST_F(KWinWaylandTest, ReportsAlthoughAnotherScriptHasTheSameNumber) {
    startKWin();
    const int first = loadOtherScript("first");
    EXPECT_EQ(loadOtherScript("second"), first + 1);
    unloadOtherScript("first");
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(KWinWaylandTest, BringsAWindowForwardAlthoughAnotherScriptHasTheSameNumber) {
    startKWin();
    loadOtherScript("first");
    Listening listening(reported);
    const Window back = open("back");
    const Window front = open("front");
    reported.expectInTheEnd("windows: back, front", "active: front");
    unloadOtherScript("first"); // now the next script has the number of the reporting script
    listening.use([](KWinWindowBackend& backend) {
        backend.bringForward([](const WindowIdentity& window) { return window.appID == "back"; },
                             [] { ADD_FAILURE() << "KWin refused the script"; });
    });
    reported.expectInTheEnd("windows: back, front", "active: back");
}

TEST_F(KWinWaylandTest, BackendReceivesReportsAfterAnEarlierBackendIsDestroyed) {
    startKWin();
    {
        const Listening listening(reported);
        reported.expectReported({"windows:", "active: none"});
    }
    FakeWindowListener again;
    const Listening listening(again);
    again.expectReported({"windows:", "active: none"});
    Window window = open("window");
    again.expectReported({"windows: window", "active: window"});
    reported.expectReported({});
}

TEST_F(KWinWaylandTest, AcceptsReportsOnlyFromKWin) {
    startKWin();
    const Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    GVariant* const names = kwin->bus().call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                             "org.freedesktop.DBus", "ListNames", nullptr);
    const char** const all = g_variant_get_strv(g_variant_get_child_value(names, 0), nullptr);
    ASSERT_NE(all, nullptr);
    int asked = 0;
    for (const char** name = all; *name != nullptr; ++name) {
        GVariant* const answer = g_dbus_connection_call_sync(
            kwin->bus().connection(), *name, kwinReportPath, kwinReportInterface, kwinReportMethod,
            g_variant_new("(s)", R"({"windows":[],"active":{"class":"forged"}})"), nullptr,
            G_DBUS_CALL_FLAGS_NO_AUTO_START, 5000, nullptr, nullptr);
        if (answer != nullptr) {
            ++asked;
            g_variant_unref(answer);
        }
    }
    g_free(all);
    g_variant_unref(names);
    EXPECT_EQ(asked, 1); // the call reached the backend's object
    reported.expectReported({});
}

TEST_F(KWinWaylandTest, ReportsNoWindowsWhenTheBusIsLost) {
    startKWin();
    Window window = open("window");
    const Listening listening(reported);
    reported.expectReported({"windows: window", "active: window"});
    kwin->breakBus();
    reported.expectReported({"windows:", "active: none"});
}

} // namespace

} // namespace glidemap
