#include "desktops/fake_service.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <functional>
#include <mutex>
#include <optional>
#include <set>
#include <thread>
#include <utility>
#include <vector>

namespace glidemap::test {

struct FakeService::State {
    State(ServiceDescription description, Journal& record)
        : service(std::move(description)), journal(record) {
        properties = service.properties;
        texts = service.texts;
        for (const auto& [method, how] : service.methods) {
            methods[method] = how;
        }
    }

    std::string shortName() const { return service.name.substr(service.name.rfind('.') + 1); }
    void connect(const std::string& address);
    void disconnect();
    void run(const std::function<void()>& work);
    void watchCaller(const char* caller);

    static void called(GDBusConnection* connection, const char* sender, const char* path,
                       const char* interface, const char* method, GVariant* arguments,
                       GDBusMethodInvocation* invocation, gpointer state);
    static GVariant* read(GDBusConnection* connection, const char* sender, const char* path,
                          const char* interface, const char* property, GError** error,
                          gpointer state);
    static gboolean write(GDBusConnection* connection, const char* sender, const char* path,
                          const char* interface, const char* property, GVariant* value,
                          GError** error, gpointer state);
    static void callerLeft(GDBusConnection* connection, const char* name, gpointer state);

    const ServiceDescription service;
    Journal& journal;
    GDBusConnection* connection = nullptr;
    GDBusNodeInfo* node = nullptr;
    std::set<std::string> callers;
    std::vector<guint> watches;
    mutable std::mutex mutex; // protects the three maps
    std::map<std::string, std::optional<Method>> methods;
    std::map<std::string, bool> properties;
    std::map<std::string, std::string> texts;
    std::thread::id threadId; // of `thread`
    DesktopThread thread;     // destroyed first
};

void FakeService::State::connect(const std::string& address) {
    threadId = std::this_thread::get_id();
    constexpr auto flags =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    connection =
        g_dbus_connection_new_for_address_sync(address.c_str(), flags, nullptr, nullptr, nullptr);
    ASSERT_NE(connection, nullptr);
    node =
        g_dbus_node_info_new_for_xml(("<node>" + service.interfaces + "</node>").c_str(), nullptr);
    ASSERT_NE(node, nullptr);
    static const GDBusInterfaceVTable table = {called, read, write, {}};
    for (GDBusInterfaceInfo** each = node->interfaces; *each != nullptr; ++each) {
        EXPECT_NE(g_dbus_connection_register_object(connection, service.path.c_str(), *each, &table,
                                                    this, nullptr, nullptr),
                  0U);
    }
    GVariant* const owner = g_dbus_connection_call_sync(
        connection, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "RequestName", g_variant_new("(su)", service.name.c_str(), 0U), nullptr,
        G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
    ASSERT_NE(owner, nullptr);
    g_variant_unref(owner);
}

void FakeService::State::disconnect() {
    for (const guint watch : watches) {
        g_bus_unwatch_name(watch);
    }
    if (connection != nullptr) {
        g_dbus_connection_close_sync(connection, nullptr, nullptr);
        g_object_unref(connection);
    }
    g_clear_pointer(&node, g_dbus_node_info_unref);
}

// Runs the work on the service's thread, so that a change or a signal never overtakes the reply to
// an earlier call.
void FakeService::State::run(const std::function<void()>& work) {
    if (std::this_thread::get_id() == threadId) {
        work(); // called by a method
    } else {
        thread.call(work);
    }
}

void FakeService::State::watchCaller(const char* caller) {
    if (callers.insert(caller).second) {
        watches.push_back(g_bus_watch_name_on_connection(
            connection, caller, G_BUS_NAME_WATCHER_FLAGS_NONE, nullptr, callerLeft, this, nullptr));
    }
}

void FakeService::State::callerLeft(GDBusConnection* /*connection*/, const char* name,
                                    gpointer state) {
    auto& self = *static_cast<State*>(state);
    self.callers.erase(name);
    if (self.callers.empty()) {
        self.journal.add(self.shortName() + ": no callers left");
    }
}

void FakeService::State::called(GDBusConnection* /*connection*/, const char* sender,
                                const char* /*path*/, const char* /*interface*/, const char* method,
                                GVariant* arguments, GDBusMethodInvocation* invocation,
                                gpointer state) {
    auto& self = *static_cast<State*>(state);
    self.watchCaller(sender);
    char* const printed = g_variant_print(arguments, FALSE);
    self.journal.add(self.shortName() + "." + method + printed);
    g_free(printed);
    std::optional<Method> how = [] {
        return g_variant_new("()");
    };
    {
        const std::lock_guard lock(self.mutex);
        if (const auto found = self.methods.find(method); found != self.methods.end()) {
            how = found->second;
        }
    }
    if (!how) {
        g_object_unref(invocation); // the call never gets a reply
        return;
    }
    GVariant* const values = (*how)();
    if (values != nullptr) {
        g_dbus_method_invocation_return_value(invocation, values);
    } else {
        g_dbus_method_invocation_return_error_literal(invocation, G_DBUS_ERROR,
                                                      G_DBUS_ERROR_NOT_SUPPORTED, "refused");
    }
}

GVariant* FakeService::State::read(GDBusConnection* /*connection*/, const char* sender,
                                   const char* /*path*/, const char* /*interface*/,
                                   const char* property, GError** /*error*/, gpointer state) {
    auto& self = *static_cast<State*>(state);
    self.watchCaller(sender);
    self.journal.add(self.shortName() + " get " + property);
    const std::lock_guard lock(self.mutex);
    if (const auto text = self.texts.find(property); text != self.texts.end()) {
        return g_variant_new_string(text->second.c_str());
    }
    return g_variant_new_boolean(self.properties[property] ? TRUE : FALSE);
}

gboolean FakeService::State::write(GDBusConnection* /*connection*/, const char* sender,
                                   const char* /*path*/, const char* /*interface*/,
                                   const char* property, GVariant* value, GError** /*error*/,
                                   gpointer state) {
    auto& self = *static_cast<State*>(state);
    self.watchCaller(sender);
    const bool wanted = g_variant_get_boolean(value) != FALSE;
    self.journal.add(self.shortName() + " set " + property + (wanted ? " true" : " false"));
    const std::lock_guard lock(self.mutex);
    self.properties[property] = wanted;
    return TRUE;
}

FakeService::FakeService(const std::string& address, ServiceDescription description,
                         Journal& record)
    : state(std::make_unique<State>(std::move(description), record)) {
    state->thread.call([&] { state->connect(address); });
}

FakeService::~FakeService() {
    state->thread.call([this] { state->disconnect(); });
}

void FakeService::answer(const std::string& method, Method how) {
    const std::lock_guard lock(state->mutex);
    state->methods[method] = std::move(how);
}

void FakeService::refuse(const std::string& method) {
    answer(method, [] { return nullptr; });
}

void FakeService::keepSilent(const std::string& method) {
    const std::lock_guard lock(state->mutex);
    state->methods[method] = std::nullopt;
}

void FakeService::set(const std::string& property, bool value) {
    const std::lock_guard lock(state->mutex);
    state->properties[property] = value;
}

void FakeService::setText(const std::string& property, const std::string& value) {
    const std::lock_guard lock(state->mutex);
    state->texts[property] = value;
}

void FakeService::setAndAnnounce(const std::string& property, bool value,
                                 const std::string& interface, const std::string& path) {
    state->run([&] {
        set(property, value);
        GVariantBuilder changed;
        g_variant_builder_init(&changed, G_VARIANT_TYPE("a{sv}"));
        g_variant_builder_add(&changed, "{sv}", property.c_str(),
                              g_variant_new_boolean(value ? TRUE : FALSE));
        g_dbus_connection_emit_signal(
            state->connection, nullptr, path.c_str(), "org.freedesktop.DBus.Properties",
            "PropertiesChanged", g_variant_new("(sa{sv}as)", interface.c_str(), &changed, nullptr),
            nullptr);
    });
}

bool FakeService::property(const std::string& name) const {
    const std::lock_guard lock(state->mutex);
    const auto found = state->properties.find(name);
    return found != state->properties.end() && found->second;
}

void FakeService::announce(const std::string& interface, const std::string& signal,
                           GVariant* values) {
    state->run([&] {
        EXPECT_TRUE(g_dbus_connection_emit_signal(state->connection, nullptr,
                                                  state->service.path.c_str(), interface.c_str(),
                                                  signal.c_str(), values, nullptr));
    });
}

} // namespace glidemap::test
