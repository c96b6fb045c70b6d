#include "desktops/private_bus.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <csignal>

namespace glidemap::test {

namespace {

std::string configuration(const std::filesystem::path& services) {
    return R"(<!DOCTYPE busconfig PUBLIC
    "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN"
    "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
    <type>session</type>
    <listen>unix:tmpdir=/tmp</listen>
    <servicedir>)" +
           services.string() + R"(</servicedir>
    <policy context="default">
        <allow send_destination="*" eavesdrop="true"/>
        <allow eavesdrop="true"/>
        <allow own="*"/>
    </policy>
</busconfig>
)";
}

Program::Command daemonIn(const RuntimeFolder& folder) {
    const auto services = folder.path() / "services";
    std::filesystem::create_directory(services);
    const auto file = folder.write("bus.conf", configuration(services));
    return {
        .words = {"dbus-daemon", "--nofork", "--print-address=1", "--config-file=" + file.string()},
        .environment = plainEnvironment(folder.path()),
        .log = folder.path() / "bus.log"};
}

constexpr auto asClient = static_cast<GDBusConnectionFlags>(
    G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

} // namespace

PrivateBus::PrivateBus() : daemon(daemonIn(folder)), _address(daemon.nextLine().value_or("")) {
    GError* error = nullptr;
    _connection = g_dbus_connection_new_for_address_sync(_address.c_str(), asClient, nullptr,
                                                         nullptr, &error);
    if (error != nullptr) {
        ADD_FAILURE() << "no bus: " << error->message;
        g_clear_error(&error);
    }
}

PrivateBus::~PrivateBus() {
    if (_connection != nullptr) {
        g_dbus_connection_close_sync(_connection, nullptr, nullptr);
        g_object_unref(_connection);
    }
}

void PrivateBus::kill() {
    daemon.kill();
}

void PrivateBus::stop() const {
    ::kill(daemon.process(), SIGSTOP);
}

void PrivateBus::goOn() const {
    ::kill(daemon.process(), SIGCONT);
}

void PrivateBus::waitForName(const std::string& name) const {
    GMainContext* const context = g_main_context_new();
    g_main_context_push_thread_default(context);
    bool owned = false;
    const unsigned watch = g_bus_watch_name_on_connection(
        _connection, name.c_str(), G_BUS_NAME_WATCHER_FLAGS_NONE,
        [](GDBusConnection*, const char*, const char*, gpointer seen) {
            *static_cast<bool*>(seen) = true;
        },
        nullptr, &owned, nullptr);
    bool late = false;
    GSource* const deadline = g_timeout_source_new_seconds(static_cast<guint>(patience.count()));
    g_source_set_callback(
        deadline,
        [](gpointer passed) {
            *static_cast<bool*>(passed) = true;
            return static_cast<gboolean>(G_SOURCE_REMOVE);
        },
        &late, nullptr);
    g_source_attach(deadline, context);
    while (!owned && !late) {
        g_main_context_iteration(context, TRUE);
    }
    EXPECT_TRUE(owned) << name << " does not appear on the bus";
    g_bus_unwatch_name(watch);
    g_source_destroy(deadline);
    g_source_unref(deadline);
    while (g_main_context_iteration(context, FALSE)) {
    }
    g_main_context_pop_thread_default(context);
    g_main_context_unref(context);
}

void PrivateBus::makeStartable(const std::string& name, const std::string& command) const {
    folder.write("services/" + name + ".service",
                 "[D-BUS Service]\nName=" + name + "\nExec=" + command + "\n");
    // Without this call, the bus might find the new file only after the test needs it.
    GVariant* const done = call("org.freedesktop.DBus", "/org/freedesktop/DBus",
                                "org.freedesktop.DBus", "ReloadConfig", nullptr);
    if (done != nullptr) {
        g_variant_unref(done);
    }
}

GVariant* PrivateBus::call(const std::string& name, const std::string& path,
                           const std::string& interface, const std::string& method,
                           GVariant* arguments) const {
    GError* error = nullptr;
    GVariant* const answer = g_dbus_connection_call_sync(
        _connection, name.c_str(), path.c_str(), interface.c_str(), method.c_str(), arguments,
        nullptr, G_DBUS_CALL_FLAGS_NO_AUTO_START,
        static_cast<int>(std::chrono::milliseconds(patience).count()), nullptr, &error);
    if (error != nullptr) {
        ADD_FAILURE() << method << ": " << error->message;
        g_clear_error(&error);
    }
    return answer;
}

} // namespace glidemap::test
