// Tests a status bar that is missing, appears and disappears, first on X11 and then on the bus. One
// test covers both, because Qt connects to the session bus once per process. A second status bar
// waits for an hour until an X11 tray has settled, so that it never uses one that appears.
#include "desktops/fake_service.h"
#include "desktops/private_bus.h"
#include "desktops/x_server.h"
#include "kit/in_environment.h"
#include "kit/qt_waiting.h"
#include "platform/linux/shell/linux_status_bar.h"

#include <gio/gio.h>
#include <gtest/gtest.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <chrono>
#include <cstring>
#include <memory>
#include <string>

namespace glidemap {
namespace {

using test::FakeService;
using test::Journal;
using test::PrivateBus;
using test::ServiceDescription;
using test::XServer;
using Kind = StatusBar::Kind;

constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";

const ServiceDescription withoutHost{
    watcherName, "/StatusNotifierWatcher",
    "<interface name='org.kde.StatusNotifierWatcher'>"
    "<property name='IsStatusNotifierHostRegistered' type='b' access='read'/>"
    "<signal name='StatusNotifierHostRegistered'/></interface>"};

// An XEmbed tray. It owns the tray selection and announces its arrival with a message to the root
// window.
class Tray {
public:
    explicit Tray(const std::string& display)
        : connection(xcb_connect(display.c_str(), nullptr)),
          screen(xcb_setup_roots_iterator(xcb_get_setup(connection)).data),
          window(xcb_generate_id(connection)) {
        xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root, 0, 0, 1, 1, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        const xcb_atom_t selection = atom("_NET_SYSTEM_TRAY_S0");
        xcb_set_selection_owner(connection, window, selection, XCB_CURRENT_TIME);
        xcb_client_message_event_t message = {};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = screen->root;
        message.type = atom("MANAGER");
        message.data.data32[1] = selection;
        message.data.data32[2] = window;
        xcb_send_event(connection, 0, screen->root, XCB_EVENT_MASK_STRUCTURE_NOTIFY,
                       reinterpret_cast<const char*>(&message));
        xcb_flush(connection);
    }
    Tray(const Tray&) = delete;
    Tray& operator=(const Tray&) = delete;
    ~Tray() { xcb_disconnect(connection); }

private:
    xcb_atom_t atom(const char* name) const {
        const auto cookie =
            xcb_intern_atom(connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
        auto* reply = xcb_intern_atom_reply(connection, cookie, nullptr);
        const xcb_atom_t found = reply->atom;
        std::free(reply);
        return found;
    }

    xcb_connection_t* connection;
    xcb_screen_t* screen;
    xcb_window_t window;
};

// A watcher that owns the name but does not respond until its main context runs.
class StuckWatcher {
public:
    explicit StuckWatcher(const PrivateBus& sessionBus) : bus(sessionBus) {
        static constexpr GDBusInterfaceVTable methods = {nullptr, hasHost, nullptr, {}};
        const std::string node = std::string("<node>") + withoutHost.interfaces + "</node>";
        description = g_dbus_node_info_new_for_xml(node.c_str(), nullptr);
        g_main_context_push_thread_default(context);
        object = g_dbus_connection_register_object(bus.connection(), withoutHost.path.c_str(),
                                                   description->interfaces[0], &methods, nullptr,
                                                   nullptr, nullptr);
        g_main_context_pop_thread_default(context);
        askBus("RequestName", g_variant_new("(su)", watcherName, 0));
    }
    StuckWatcher(const StuckWatcher&) = delete;
    StuckWatcher& operator=(const StuckWatcher&) = delete;
    ~StuckWatcher() {
        askBus("ReleaseName", g_variant_new("(s)", watcherName));
        g_dbus_connection_unregister_object(bus.connection(), object);
        g_dbus_node_info_unref(description);
        g_main_context_unref(context);
    }

    void respond() const {
        while (g_main_context_iteration(context, FALSE) != FALSE) {
        }
    }

private:
    static GVariant* hasHost(GDBusConnection* /*connection*/, const char* /*sender*/,
                             const char* /*path*/, const char* /*interface*/,
                             const char* /*property*/, GError** /*error*/, gpointer /*data*/) {
        return g_variant_new_boolean(TRUE);
    }
    void askBus(const char* method, GVariant* arguments) const {
        g_variant_unref(bus.call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                 "org.freedesktop.DBus", method, arguments));
    }

    const PrivateBus& bus;
    GMainContext* const context = g_main_context_new();
    GDBusNodeInfo* description = nullptr;
    unsigned object = 0;
};

TEST(LinuxStatusBarTest, DetectsBarsAtRunTimeAndPrefersTheDBusStatusBar) {
    if (const std::string reason = XServer::whyNot(); !reason.empty()) {
        GTEST_SKIP() << reason;
    }
    const XServer server;
    const PrivateBus bus;
    const test::InEnvironment display("DISPLAY", server.display().c_str());
    const test::InEnvironment session("DBUS_SESSION_BUS_ADDRESS", bus.address().c_str());
    const test::InEnvironment platform("QT_QPA_PLATFORM", "xcb");
    int count = 1;
    char name[] = "test";
    char* arguments[] = {name, nullptr};
    const QGuiApplication application(count, arguments);

    // A watcher that does not respond blocks nothing, and the bar detects the watcher once it
    // responds.
    auto stuck = std::make_unique<StuckWatcher>(bus);
    LinuxStatusBar bar(std::chrono::milliseconds(0));
    LinuxStatusBar patient(std::chrono::hours(1));
    int changes = 0;
    const auto toBar = bar.changes().subscribe({}, [&] { ++changes; });
    EXPECT_EQ(bar.kind(), Kind::none);
    {
        const Tray tray(server.display());
        EXPECT_TRUE(test::waitFor([&] { return bar.kind() == Kind::embeds; }));
        EXPECT_GE(changes, 1);
        EXPECT_EQ(patient.kind(), Kind::none);
        changes = 0;
        EXPECT_TRUE(test::waitFor([&] {
            stuck->respond();
            return changes == 1;
        }));
        EXPECT_EQ(bar.kind(), Kind::drawsItself);
        EXPECT_TRUE(test::waitFor([&] { return patient.kind() == Kind::drawsItself; }));
        stuck.reset();
        EXPECT_TRUE(test::waitFor([&] { return changes == 2; }));
        EXPECT_EQ(bar.kind(), Kind::embeds);
    }
    EXPECT_TRUE(test::waitFor([&] { return bar.kind() == Kind::none; }));

    const Tray tray(server.display());
    EXPECT_TRUE(test::waitFor([&] { return changes == 3; }));
    EXPECT_EQ(patient.kind(), Kind::none);
    Journal journal;
    {
        FakeService watcher(bus.address(), withoutHost, journal);
        watcher.set("IsStatusNotifierHostRegistered", true);
        watcher.announce(watcherName, "StatusNotifierHostRegistered", g_variant_new("()"));
        EXPECT_TRUE(test::waitFor([&] { return changes == 4; }));
        EXPECT_EQ(bar.kind(), Kind::drawsItself);
    }
    EXPECT_TRUE(test::waitFor([&] { return changes == 5; }));
    EXPECT_EQ(bar.kind(), Kind::embeds);

    // A watcher that cannot report whether it has a host counts as a status bar. Qt queries the
    // watcher itself before it shows the icon.
    const FakeService unable(bus.address(), {watcherName, "/elsewhere", "<interface name='a.b'/>"},
                             journal);
    EXPECT_TRUE(test::waitFor([&] { return changes == 6; }));
    EXPECT_EQ(bar.kind(), Kind::drawsItself);
}

} // namespace
} // namespace glidemap
