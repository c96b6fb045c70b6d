#include "fake_gnome_shell.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <utility>

namespace glidemap {

namespace {

constexpr const char* description = R"xml(<node>
    <interface name="org.gnome.Shell">
        <property name="ShellVersion" type="s" access="read"/>
    </interface>
    <interface name="org.gnome.Shell.Extensions">
        <method name="GetExtensionInfo">
            <arg type="s" direction="in"/><arg type="a{sv}" direction="out"/>
        </method>
        <method name="EnableExtension">
            <arg type="s" direction="in"/><arg type="b" direction="out"/>
        </method>
    </interface>
    <interface name="org.glidemap.Windows">
        <method name="GetWindows">
            <arg type="a(ssssu)" direction="out"/><arg type="a(ssssu)" direction="out"/>
        </method>
    </interface>
</node>)xml";

constexpr auto asClient = static_cast<GDBusConnectionFlags>(
    G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

constexpr const char* shellPath = "/org/gnome/Shell";
constexpr const char* windowsPath = "/org/glidemap/Windows";
constexpr const char* windowsInterface = "org.glidemap.Windows";

GVariant* parsed(const char* type, const std::string& text) {
    GError* error = nullptr;
    GVariant* const value = g_variant_parse(type == nullptr ? nullptr : G_VARIANT_TYPE(type),
                                            text.c_str(), nullptr, nullptr, &error);
    if (error != nullptr) {
        ADD_FAILURE() << text << ": " << error->message;
        g_clear_error(&error);
    }
    return value;
}

} // namespace

FakeGnomeShell::FakeGnomeShell(const std::string& busAddress, Knowledge known)
    : knowledge(std::move(known)) {
    thread.call([&] {
        connection = g_dbus_connection_new_for_address_sync(busAddress.c_str(), asClient, nullptr,
                                                            nullptr, nullptr);
        if (!knowledge.isStarting) {
            registerObject(shellPath, "org.gnome.Shell");
            registerObject(shellPath, "org.gnome.Shell.Extensions");
        }
        GVariant* const granted = g_dbus_connection_call_sync(
            connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
            "RequestName", g_variant_new("(su)", "org.gnome.Shell", 0), nullptr,
            G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
        ASSERT_NE(granted, nullptr);
        g_variant_unref(granted);
    });
}

FakeGnomeShell::~FakeGnomeShell() {
    thread.call([&] {
        g_dbus_connection_close_sync(connection, nullptr, nullptr);
        g_object_unref(connection);
    });
}

void FakeGnomeShell::registerObject(const char* path, const char* interface) {
    static GDBusNodeInfo* const node = g_dbus_node_info_new_for_xml(description, nullptr);
    static constexpr GDBusInterfaceVTable methods = {
        [](GDBusConnection*, const char*, const char*, const char*, const char* method,
           GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self) {
            static_cast<FakeGnomeShell*>(self)->answer(method, arguments, invocation);
        },
        [](GDBusConnection*, const char*, const char*, const char*, const char*, GError**,
           gpointer self) {
            return parsed("s", static_cast<FakeGnomeShell*>(self)->knowledge.version);
        },
        nullptr,
        {}};
    const unsigned object = g_dbus_connection_register_object(
        connection, path, g_dbus_node_info_lookup_interface(node, interface), &methods, this,
        nullptr, nullptr);
    if (path == std::string(windowsPath)) {
        windowsObject = object;
    }
}

void FakeGnomeShell::answer(const std::string& method, GVariant* arguments,
                            GDBusMethodInvocation* invocation) {
    GVariant* values = nullptr;
    if (method == "GetWindows") {
        values = parsed("(a(ssssu)a(ssssu))", windows);
    } else if (method == "GetExtensionInfo") {
        values = parsed("(a{sv})", "(" + knowledge.extension + ",)");
    } else {
        const char* extension = nullptr;
        g_variant_get(arguments, "(&s)", &extension);
        const std::lock_guard lock(mutex);
        asked.emplace_back(extension);
        values = parsed("(b)", knowledge.extension == "{}" ? "(false,)" : "(true,)");
    }
    g_dbus_method_invocation_return_value(invocation, values);
    g_variant_unref(values);
}

void FakeGnomeShell::startExtension(const std::string& reported) {
    thread.call([&] {
        windows = reported;
        registerObject(windowsPath, windowsInterface);
        emitHere("Started", "()");
    });
}

void FakeGnomeShell::stopExtension() {
    // Stops synchronously, as the shell does, so that no call gets a reply after the extension has
    // stopped.
    thread.call([&] {
        g_dbus_connection_unregister_object(connection, windowsObject);
        emitHere("Stopped", "()");
    });
}

void FakeGnomeShell::emit(const char* signal, const std::string& values) {
    thread.call([&] { emitHere(signal, values); });
}

void FakeGnomeShell::emitHere(const char* signal, const std::string& values) {
    GVariant* const message = parsed(nullptr, values);
    g_dbus_connection_emit_signal(connection, nullptr, windowsPath, windowsInterface, signal,
                                  message, nullptr);
    g_variant_unref(message);
    g_dbus_connection_flush_sync(connection, nullptr, nullptr);
}

std::vector<std::string> FakeGnomeShell::enabled() {
    const std::lock_guard lock(mutex);
    return asked;
}

} // namespace glidemap
