#include "status_host.h"

#include "variant.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <mutex>

namespace glidemap::test {

namespace {

constexpr const char* watcherName = "org.kde.StatusNotifierWatcher";
constexpr const char* watcherPath = "/StatusNotifierWatcher";
constexpr const char* itemPath = "/StatusNotifierItem";
constexpr int protocolVersion = 0;

constexpr const char* interfaces = R"(<node><interface name='org.kde.StatusNotifierWatcher'>
    <method name='RegisterStatusNotifierItem'><arg type='s' direction='in'/></method>
    <method name='RegisterStatusNotifierHost'><arg type='s' direction='in'/></method>
    <property name='RegisteredStatusNotifierItems' type='as' access='read'/>
    <property name='IsStatusNotifierHostRegistered' type='b' access='read'/>
    <property name='ProtocolVersion' type='i' access='read'/>
    <signal name='StatusNotifierItemRegistered'><arg type='s'/></signal>
    <signal name='StatusNotifierItemUnregistered'><arg type='s'/></signal>
    <signal name='StatusNotifierHostRegistered'/>
    <signal name='StatusNotifierHostUnregistered'/>
</interface></node>)";

} // namespace

struct StatusHost::State {
    void connect(const std::string& address);
    void disconnect();
    void add(const std::string& said, const std::string& sender);
    void notify(const char* signal, GVariant* values) const;

    static void called(GDBusConnection* connection, const char* sender, const char* path,
                       const char* interface, const char* method, GVariant* arguments,
                       GDBusMethodInvocation* invocation, gpointer state);
    static GVariant* read(GDBusConnection* connection, const char* sender, const char* path,
                          const char* interface, const char* property, GError** error,
                          gpointer state);
    static void left(GDBusConnection* connection, const char* name, gpointer state);

    GDBusConnection* connection = nullptr;
    GDBusNodeInfo* node = nullptr;
    std::map<std::string, guint> watches; // keyed by the bus name whose owner is watched
    mutable std::mutex mutex;             // protects the items
    std::vector<Item> items;
    DesktopThread thread; // destroyed first
};

void StatusHost::State::connect(const std::string& address) {
    constexpr auto asClient =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    connection = g_dbus_connection_new_for_address_sync(address.c_str(), asClient, nullptr, nullptr,
                                                        nullptr);
    ASSERT_NE(connection, nullptr);
    node = g_dbus_node_info_new_for_xml(interfaces, nullptr);
    ASSERT_NE(node, nullptr);
    static const GDBusInterfaceVTable table = {called, read, nullptr, {}};
    EXPECT_NE(g_dbus_connection_register_object(connection, watcherPath, node->interfaces[0],
                                                &table, this, nullptr, nullptr),
              0U);
    EXPECT_NE(call(connection,
                   {"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"},
                   "RequestName", g_variant_new("(su)", watcherName, 0U)),
              nullptr);
    notify("StatusNotifierHostRegistered", nullptr);
}

void StatusHost::State::disconnect() {
    for (const auto& [name, watch] : watches) {
        g_bus_unwatch_name(watch);
    }
    if (connection != nullptr) {
        g_dbus_connection_close_sync(connection, nullptr, nullptr);
        g_object_unref(connection);
    }
    g_clear_pointer(&node, g_dbus_node_info_unref);
}

void StatusHost::State::notify(const char* signal, GVariant* values) const {
    g_dbus_connection_emit_signal(connection, nullptr, watcherPath, watcherName, signal, values,
                                  nullptr);
}

// A program registers either its bus name, or the item's path on its own connection.
void StatusHost::State::add(const std::string& said, const std::string& sender) {
    const Item item = said.starts_with('/') ? Item{sender, said} : Item{said, itemPath};
    {
        const std::lock_guard lock(mutex);
        if (std::find(items.begin(), items.end(), item) != items.end()) {
            return;
        }
        items.push_back(item);
    }
    watches.try_emplace(item.busName,
                        g_bus_watch_name_on_connection(connection, item.busName.c_str(),
                                                       G_BUS_NAME_WATCHER_FLAGS_NONE, nullptr, left,
                                                       this, nullptr));
    notify("StatusNotifierItemRegistered",
           g_variant_new("(s)", (item.busName + item.path).c_str()));
}

void StatusHost::State::left(GDBusConnection* /*connection*/, const char* name, gpointer state) {
    auto& self = *static_cast<State*>(state);
    const std::lock_guard lock(self.mutex);
    std::erase_if(self.items, [&](const Item& item) { return item.busName == name; });
}

void StatusHost::State::called(GDBusConnection* /*connection*/, const char* sender,
                               const char* /*path*/, const char* /*interface*/, const char* method,
                               GVariant* arguments, GDBusMethodInvocation* invocation,
                               gpointer state) {
    if (std::string(method) == "RegisterStatusNotifierItem") {
        const char* said = nullptr;
        g_variant_get(arguments, "(&s)", &said);
        static_cast<State*>(state)->add(said, sender);
    }
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

GVariant* StatusHost::State::read(GDBusConnection* /*connection*/, const char* /*sender*/,
                                  const char* /*path*/, const char* /*interface*/,
                                  const char* property, GError** /*error*/, gpointer state) {
    const std::string name = property;
    if (name == "IsStatusNotifierHostRegistered") {
        return g_variant_new_boolean(TRUE);
    }
    if (name == "ProtocolVersion") {
        return g_variant_new_int32(protocolVersion);
    }
    const auto& self = *static_cast<State*>(state);
    const std::lock_guard lock(self.mutex);
    GVariantBuilder names;
    g_variant_builder_init(&names, G_VARIANT_TYPE("as"));
    for (const Item& item : self.items) {
        g_variant_builder_add(&names, "s", (item.busName + item.path).c_str());
    }
    return g_variant_builder_end(&names);
}

StatusHost::StatusHost(const std::string& busAddress) : state(std::make_unique<State>()) {
    state->thread.call([&] { state->connect(busAddress); });
}

StatusHost::~StatusHost() {
    state->thread.call([this] { state->disconnect(); });
}

std::vector<StatusHost::Item> StatusHost::items() const {
    const std::lock_guard lock(state->mutex);
    return state->items;
}

} // namespace glidemap::test
