#include "platform/linux/desktop/desktop_bus.h"

#include "platform/linux/desktop/bus_probe.h"
#include "platform/linux/desktop/environment.h"
#include "platform/linux/desktop/glib_owner.h"

#include <gio/gio.h>

#include <algorithm>
#include <chrono>
#include <utility>

namespace glidemap {

namespace {

constexpr int noTimeout = G_MAXINT;
constexpr int busTimeout = 5000; // milliseconds; a working bus replies in less than one

// A working bus responds within a millisecond, or within a few hundred milliseconds during a busy
// login.
constexpr std::chrono::milliseconds silentBusPatience{3000};

struct NameWatch {
    std::function<void(const std::string&)> appeared;
    std::function<void()> vanished;
};

void reportAppeared(GDBusConnection* /*connection*/, const char* /*name*/, const char* owner,
                    gpointer watch) {
    static_cast<NameWatch*>(watch)->appeared(owner);
}

void reportVanished(GDBusConnection* /*connection*/, const char* /*name*/, gpointer watch) {
    static_cast<NameWatch*>(watch)->vanished();
}

struct Call {
    std::weak_ptr<bool> alive;
    DesktopBus::Answer answer;
};

void passAnswer(GObject* connection, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<Call> call(static_cast<Call*>(data));
    GError* failure = nullptr;
    const GlibOwner<GVariant> values(
        g_dbus_connection_call_finish(G_DBUS_CONNECTION(connection), result, &failure));
    const GlibOwner<GError> error(failure);
    if (!call->alive.expired()) {
        call->answer(values.get(), error.get());
    }
}

void callSignalHandler(GDBusConnection* /*connection*/, const char* /*sender*/,
                       const char* /*path*/, const char* /*interface*/, const char* signal,
                       GVariant* values, gpointer handler) {
    const DesktopBus::SignalHandler send = *static_cast<DesktopBus::SignalHandler*>(handler);
    // Calls a copy, because the callback may remove its own subscription.
    send(signal, values);
}

const char* orAny(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

} // namespace

bool isUnknownOnTheBus(const GError& error) {
    return g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_OBJECT) ||
           g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_INTERFACE) ||
           g_error_matches(&error, G_DBUS_ERROR, G_DBUS_ERROR_UNKNOWN_METHOD);
}

GlibOwner<GVariant> variantIn(GVariant* reply) {
    GVariant* inner = nullptr;
    if (reply != nullptr && g_variant_is_of_type(reply, G_VARIANT_TYPE("(v)"))) {
        g_variant_get(reply, "(v)", &inner);
    }
    return GlibOwner<GVariant>(inner);
}

std::optional<bool> booleanIn(GVariant* reply) {
    const GlibOwner<GVariant> inner = variantIn(reply);
    if (inner && g_variant_is_of_type(inner.get(), G_VARIANT_TYPE_BOOLEAN)) {
        return g_variant_get_boolean(inner.get()) != FALSE;
    }
    if (reply == nullptr || !g_variant_is_of_type(reply, G_VARIANT_TYPE("(b)"))) {
        return std::nullopt;
    }
    gboolean value = FALSE;
    g_variant_get(reply, "(b)", &value);
    return value != FALSE;
}

std::optional<std::vector<std::string>> wordsIn(GVariant* reply) {
    if (reply == nullptr || !g_variant_is_of_type(reply, G_VARIANT_TYPE("(as)"))) {
        return std::nullopt;
    }
    char** words = nullptr;
    g_variant_get(reply, "(^as)", &words);
    return takeWords(words);
}

std::unique_ptr<DesktopBus> DesktopBus::open() {
    const auto address =
        takeText(g_dbus_address_get_for_bus_sync(G_BUS_TYPE_SESSION, nullptr, nullptr));
    if (!address || !busResponds(*address, silentBusPatience)) {
        return nullptr;
    }
    constexpr auto asClient =
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
    GlibOwner<GDBusConnection> opened(g_dbus_connection_new_for_address_sync(
        address->c_str(), asClient, nullptr, nullptr, nullptr));
    return opened == nullptr ? nullptr : std::make_unique<DesktopBus>(std::move(opened));
}

DesktopBus::DesktopBus(GlibOwner<GDBusConnection> opened) : _connection(std::move(opened)) {
    // The library's default is to exit the process when the bus disconnects.
    g_dbus_connection_set_exit_on_close(_connection.get(), FALSE);
}

DesktopBus::~DesktopBus() {
    for (const unsigned watch : watches) {
        g_bus_unwatch_name(watch);
    }
    for (const unsigned subscription : subscriptions) {
        g_dbus_connection_signal_unsubscribe(_connection.get(), subscription);
    }
    g_dbus_connection_flush_sync(_connection.get(), nullptr, nullptr);
    g_dbus_connection_close_sync(_connection.get(), nullptr, nullptr);
}

void DesktopBus::watchName(const char* name, std::function<void(const std::string&)> appeared,
                           std::function<void()> vanished) {
    watches.push_back(g_bus_watch_name_on_connection(
        _connection.get(), name, G_BUS_NAME_WATCHER_FLAGS_NONE, reportAppeared, reportVanished,
        new NameWatch{std::move(appeared), std::move(vanished)},
        [](gpointer watch) { delete static_cast<NameWatch*>(watch); }));
}

void DesktopBus::call(const BusObject& object, const char* method, GVariant* arguments,
                      Answer answer) {
    g_dbus_connection_call(_connection.get(), object.name.c_str(), object.path.c_str(),
                           object.interface.c_str(), method, arguments, nullptr,
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, noTimeout, nullptr, passAnswer,
                           new Call{alive, std::move(answer)});
}

void DesktopBus::send(const BusObject& object, const char* method, GVariant* arguments) {
    g_dbus_connection_call(_connection.get(), object.name.c_str(), object.path.c_str(),
                           object.interface.c_str(), method, arguments, nullptr,
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, noTimeout, nullptr, nullptr, nullptr);
}

unsigned DesktopBus::subscribe(const BusObject& object, SignalHandler handler) {
    const unsigned subscription = g_dbus_connection_signal_subscribe(
        _connection.get(), object.name.c_str(), orAny(object.interface), nullptr,
        orAny(object.path), nullptr, G_DBUS_SIGNAL_FLAGS_NONE, callSignalHandler,
        new SignalHandler(std::move(handler)),
        [](gpointer data) { delete static_cast<SignalHandler*>(data); });
    subscriptions.push_back(subscription);
    return subscription;
}

void DesktopBus::unsubscribe(unsigned subscription) {
    if (std::erase(subscriptions, subscription) > 0) {
        g_dbus_connection_signal_unsubscribe(_connection.get(), subscription);
    }
}

bool DesktopBus::isOwned(const char* name) const {
    const GlibOwner<GVariant> answer(g_dbus_connection_call_sync(
        _connection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
        "NameHasOwner", g_variant_new("(s)", name), G_VARIANT_TYPE("(b)"), G_DBUS_CALL_FLAGS_NONE,
        busTimeout, nullptr, nullptr));
    return booleanIn(answer.get()).value_or(false);
}

std::string DesktopBus::uniqueName() const {
    return g_dbus_connection_get_unique_name(_connection.get());
}

bool isCurrentDesktop(const std::string& desktop) {
    const auto names = splitAtColons(fromEnvironment("XDG_CURRENT_DESKTOP"));
    return std::find(names.begin(), names.end(), desktop) != names.end();
}

} // namespace glidemap
