#include "fake_kwin.h"

#include "desktops/program.h"
#include "platform/linux/windows/kwin/kwin_script.h"

#include <gio/gio.h>
#include <gmock/gmock.h>

#include <fstream>
#include <sstream>
#include <utility>

namespace glidemap {

namespace {

constexpr const char* description = R"xml(<node>
    <interface name="org.kde.kwin.Scripting">
        <method name="loadScript">
            <arg type="s" direction="in"/><arg type="s" direction="in"/>
            <arg type="i" direction="out"/>
        </method>
        <method name="unloadScript">
            <arg type="s" direction="in"/><arg type="b" direction="out"/>
        </method>
        <method name="start"/>
    </interface>
    <interface name="org.kde.kwin.Script">
        <method name="run"/>
    </interface>
</node>)xml";

constexpr auto asClient = static_cast<GDBusConnectionFlags>(
    G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

} // namespace

const std::vector<std::string> FakeKWin::loading = {"unloadScript /Scripting",
                                                    "loadScript /Scripting",
                                                    "run /Scripting/Script7", "start /Scripting"};

FakeKWin::FakeKWin(const std::string& busAddress, Nature what) : nature(std::move(what)) {
    thread.call([&] {
        connection = g_dbus_connection_new_for_address_sync(busAddress.c_str(), asClient, nullptr,
                                                            nullptr, nullptr);
        if (!nature.isStarting) {
            registerScripting();
        }
        GVariant* const granted = g_dbus_connection_call_sync(
            connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "RequestName", g_variant_new("(su)", "org.kde.KWin", 0), nullptr,
            G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
        ASSERT_NE(granted, nullptr);
        g_variant_unref(granted);
    });
}

FakeKWin::~FakeKWin() {
    thread.call([&] {
        for (GDBusMethodInvocation* const invocation : unanswered) {
            g_dbus_method_invocation_return_dbus_error(invocation, "org.example.Error", "gone");
        }
        g_dbus_connection_close_sync(connection, nullptr, nullptr);
        g_object_unref(connection);
    });
}

void FakeKWin::registerScripting() {
    registerObject("/Scripting", "org.kde.kwin.Scripting");
    if (nature.id >= 0) {
        registerObject(nature.scriptFolder + std::to_string(nature.id), "org.kde.kwin.Script");
    }
}

void FakeKWin::registerObject(const std::string& at, const char* interface) {
    static GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(description, nullptr);
    static constexpr GDBusInterfaceVTable methods = {
        [](GDBusConnection*, const char*, const char*, const char*, const char* method,
           GVariant* arguments, GDBusMethodInvocation* invocation,
           gpointer self) { static_cast<FakeKWin*>(self)->answer(method, arguments, invocation); },
        nullptr,
        nullptr,
        {}};
    g_dbus_connection_register_object(connection, at.c_str(),
                                      g_dbus_node_info_lookup_interface(node, interface), &methods,
                                      this, nullptr, nullptr);
}

void FakeKWin::answer(const std::string& method, GVariant* arguments,
                      GDBusMethodInvocation* invocation) {
    const std::lock_guard lock(mutex);
    calls.push_back(method + " " + g_dbus_method_invocation_get_object_path(invocation));
    asked.notify_one();
    if (nature.isStuck) {
        unanswered.push_back(invocation);
    } else if (method == "unloadScript") {
        g_dbus_method_invocation_return_value(invocation, g_variant_new("(b)", FALSE));
    } else if (method == "loadScript") {
        g_dbus_method_invocation_return_value(
            invocation, load(arguments, g_dbus_method_invocation_get_sender(invocation)));
    } else if (method == "start") {
        g_dbus_method_invocation_return_value(invocation, nullptr);
    } else if (nature.runs) {
        readScript();
        g_dbus_method_invocation_return_value(invocation, nullptr);
    } else {
        g_dbus_method_invocation_return_dbus_error(invocation, "org.example.Error", "no");
    }
}

GVariant* FakeKWin::load(GVariant* arguments, const char* caller) {
    const char* file = nullptr;
    const char* name = nullptr;
    g_variant_get(arguments, "(&s&s)", &file, &name);
    path = file;
    loader = caller;
    return g_variant_new("(i)", nature.id);
}

void FakeKWin::readScript() {
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    content = text.str();
    mode = std::filesystem::status(path).permissions();
}

void FakeKWin::finishStarting() {
    thread.call([&] { registerScripting(); });
    sendSignal();
}

void FakeKWin::sendSignal() {
    thread.call([&] {
        g_dbus_connection_emit_signal(connection, nullptr, "/Compositor",
                                      "org.kde.kwin.Compositing", "compositingToggled",
                                      g_variant_new("(b)", TRUE), nullptr);
    });
}

void FakeKWin::report(const std::string& text) {
    thread.call([&] {
        GVariant* const reply = g_dbus_connection_call_sync(
            connection, loader.c_str(), kwinReportPath, kwinReportInterface, kwinReportMethod,
            g_variant_new("(s)", text.c_str()), nullptr, G_DBUS_CALL_FLAGS_NONE, -1, nullptr,
            nullptr);
        ASSERT_NE(reply, nullptr);
        g_variant_unref(reply);
    });
}

void FakeKWin::expectCalls(const std::vector<std::string>& expected) {
    std::unique_lock lock(mutex);
    asked.wait_for(lock, test::patience, [&] { return calls.size() >= expected.size(); });
    EXPECT_THAT(calls, testing::ElementsAreArray(expected));
    calls.clear();
}

std::string FakeKWin::script() {
    const std::lock_guard lock(mutex);
    return content;
}

std::filesystem::perms FakeKWin::permissions() {
    const std::lock_guard lock(mutex);
    return mode;
}

std::filesystem::path FakeKWin::file() {
    const std::lock_guard lock(mutex);
    return path;
}

} // namespace glidemap
