#include "platform/linux/desktop/desktop_bus.h"

#include "platform/linux/desktop/bus_probe.h"

#include <gio/gio.h>

#include <utility>

namespace glidemap {

namespace {

// A working bus responds within a millisecond, or within a few hundred milliseconds during a busy
// login.
constexpr std::chrono::milliseconds busPatience{5000};
constexpr std::chrono::milliseconds sharedBusPatience{1000};
constexpr std::chrono::milliseconds silentBusPatience{3000};

constexpr auto asClient = static_cast<GDBusConnectionFlags>(
    G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT | G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);

const BusObject busDaemon{"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"};

template <typename Type>
void forget(gpointer held) {
    delete static_cast<Type*>(held);
}

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

struct PendingCall {
    std::weak_ptr<bool> alive;
    DesktopBus::Answer answer;
};

void passAnswer(GObject* connection, GAsyncResult* result, gpointer data) {
    const std::unique_ptr<PendingCall> call(static_cast<PendingCall*>(data));
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
    // Calls a copy, because the handler may remove its own subscription.
    send(signal, values);
}

void callMethodHandler(GDBusConnection* /*connection*/, const char* sender, const char* /*path*/,
                       const char* /*interface*/, const char* /*method*/, GVariant* arguments,
                       GDBusMethodInvocation* invocation, gpointer handler) {
    (*static_cast<DesktopBus::MethodHandler*>(handler))(sender, arguments);
    g_dbus_method_invocation_return_value(invocation, nullptr);
}

const char* orAny(const std::string& text) {
    return text.empty() ? nullptr : text.c_str();
}

int timeoutOf(const DesktopBus::Call& call) {
    return call.patience ? static_cast<int>(call.patience->count()) : G_MAXINT;
}

GDBusCallFlags flagsOf(const DesktopBus::Call& call) {
    return call.ifNotRunning == IfNotRunning::start ? G_DBUS_CALL_FLAGS_NONE
                                                    : G_DBUS_CALL_FLAGS_NO_AUTO_START;
}

// An attempt to get GIO's shared connection. Its destruction stops the timer of the time limit.
struct SharedAttempt {
    DesktopBus::Shared then;
    GlibOwner<GCancellable> cancellable{g_cancellable_new()};
    GlibOwner<GSource> limit{g_timeout_source_new(static_cast<guint>(sharedBusPatience.count()))};

    static gboolean cancel(gpointer cancellable) {
        g_cancellable_cancel(static_cast<GCancellable*>(cancellable));
        return G_SOURCE_REMOVE;
    }
};

// Returns the shared bus. The reference is kept, because GIO closes its connection when the last
// reference is released. The pointer is never destroyed, and it is used only on the thread that
// launches programs.
std::shared_ptr<DesktopBus>& keptBus() {
    static auto& kept = *new std::shared_ptr<DesktopBus>;
    return kept;
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
    return address && busResponds(*address, silentBusPatience) ? open(*address) : nullptr;
}

std::unique_ptr<DesktopBus> DesktopBus::open(const std::string& address) {
    return owning(g_dbus_connection_new_for_address_sync(address.c_str(), asClient, nullptr,
                                                         nullptr, nullptr));
}

void DesktopBus::open(const std::string& address, GCancellable* cancellable, Opened then) {
    const auto finished = [](GObject* /*source*/, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<Opened> opened(static_cast<Opened*>(data));
        (*opened)(owning(g_dbus_connection_new_for_address_finish(result, nullptr)));
    };
    g_dbus_connection_new_for_address(address.c_str(), asClient, nullptr, cancellable, finished,
                                      new Opened(std::move(then)));
}

void DesktopBus::withShared(Shared then) {
    if (keptBus() && g_dbus_connection_is_closed(keptBus()->connection.get()) != FALSE) {
        keptBus().reset(); // otherwise GIO would return the closed connection again
    }
    auto* const attempt = new SharedAttempt{std::move(then)};
    g_source_set_callback(attempt->limit.get(), SharedAttempt::cancel, attempt->cancellable.get(),
                          nullptr);
    g_source_attach(attempt->limit.get(), g_main_context_get_thread_default());
    const auto finished = [](GObject* /*source*/, GAsyncResult* result, gpointer data) {
        const std::unique_ptr<SharedAttempt> ended(static_cast<SharedAttempt*>(data));
        GlibOwner<GDBusConnection> bus(g_bus_get_finish(result, nullptr));
        if (bus == nullptr) {
            ended->then(nullptr);
            return;
        }
        if (!keptBus() || keptBus()->connection != bus) {
            keptBus().reset(new DesktopBus(std::move(bus), Sharing::shared));
        }
        ended->then(std::shared_ptr(keptBus()));
    };
    g_bus_get(G_BUS_TYPE_SESSION, attempt->cancellable.get(), finished, attempt);
}

std::unique_ptr<DesktopBus> DesktopBus::owning(GDBusConnection* connection) {
    GlibOwner<GDBusConnection> owner(connection);
    return std::unique_ptr<DesktopBus>(
        owner != nullptr ? new DesktopBus(std::move(owner), Sharing::own) : nullptr);
}

DesktopBus::DesktopBus(GlibOwner<GDBusConnection> connection, Sharing sharing)
    : connection(std::move(connection)), sharing(sharing) {
    // By default, GIO exits the process when the bus closes a shared connection.
    g_dbus_connection_set_exit_on_close(this->connection.get(), FALSE);
}

DesktopBus::~DesktopBus() {
    for (const unsigned watch : watches) {
        g_bus_unwatch_name(watch);
    }
    for (const unsigned subscription : subscriptions) {
        g_dbus_connection_signal_unsubscribe(connection.get(), subscription);
    }
    for (const unsigned object : objects) {
        g_dbus_connection_unregister_object(connection.get(), object);
    }
    if (sharing == Sharing::own) {
        g_dbus_connection_flush_sync(connection.get(), nullptr, nullptr);
        g_dbus_connection_close_sync(connection.get(), nullptr, nullptr);
    }
}

void DesktopBus::watchName(const char* name, std::function<void(const std::string&)> appeared,
                           std::function<void()> vanished) {
    watches.push_back(g_bus_watch_name_on_connection(
        connection.get(), name, G_BUS_NAME_WATCHER_FLAGS_NONE, reportAppeared, reportVanished,
        new NameWatch{std::move(appeared), std::move(vanished)}, forget<NameWatch>));
}

void DesktopBus::call(const Call& call, GVariant* arguments, Answer answer) {
    g_dbus_connection_call(connection.get(), call.object.name.c_str(), call.object.path.c_str(),
                           call.object.interface.c_str(), call.method.c_str(), arguments, nullptr,
                           flagsOf(call), timeoutOf(call), call.cancellable, passAnswer,
                           new PendingCall{alive, std::move(answer)});
}

void DesktopBus::call(const BusObject& object, const char* method, GVariant* arguments,
                      Answer answer) {
    call({object, method}, arguments, std::move(answer));
}

void DesktopBus::send(const BusObject& object, const char* method, GVariant* arguments) {
    g_dbus_connection_call(connection.get(), object.name.c_str(), object.path.c_str(),
                           object.interface.c_str(), method, arguments, nullptr,
                           G_DBUS_CALL_FLAGS_NO_AUTO_START, G_MAXINT, nullptr, nullptr, nullptr);
}

DesktopBus::Reply DesktopBus::wait(const Call& call, GVariant* arguments) const {
    GError* failure = nullptr;
    Reply reply;
    reply.values.reset(g_dbus_connection_call_sync(
        connection.get(), call.object.name.c_str(), call.object.path.c_str(),
        call.object.interface.c_str(), call.method.c_str(), arguments, nullptr, flagsOf(call),
        timeoutOf(call), call.cancellable, &failure));
    reply.error.reset(failure);
    if (failure != nullptr) {
        g_dbus_error_strip_remote_error(failure);
    }
    return reply;
}

bool DesktopBus::isOwned(const char* name) const {
    const Reply reply = wait({busDaemon, "NameHasOwner", IfNotRunning::leave, busPatience},
                             g_variant_new("(s)", name));
    return booleanIn(reply.values.get()).value_or(false);
}

unsigned DesktopBus::subscribe(const BusSignal& signal, SignalHandler handler) {
    const unsigned subscription = g_dbus_connection_signal_subscribe(
        connection.get(), orAny(signal.service), orAny(signal.interface), orAny(signal.name),
        orAny(signal.path), orAny(signal.firstArgument), G_DBUS_SIGNAL_FLAGS_NONE,
        callSignalHandler, new SignalHandler(std::move(handler)), forget<SignalHandler>);
    subscriptions.push_back(subscription);
    return subscription;
}

void DesktopBus::unsubscribe(unsigned subscription) {
    if (std::erase(subscriptions, subscription) > 0) {
        g_dbus_connection_signal_unsubscribe(connection.get(), subscription);
    }
}

// `node` may be released on return, because the registration holds a reference to the interface.
void DesktopBus::serve(const char* path, const char* description, MethodHandler handler) {
    static constexpr GDBusInterfaceVTable methods = {callMethodHandler, nullptr, nullptr, {}};
    const GlibOwner<GDBusNodeInfo> node(g_dbus_node_info_new_for_xml(description, nullptr));
    const unsigned object = g_dbus_connection_register_object(
        connection.get(), path, node->interfaces[0], &methods,
        new MethodHandler(std::move(handler)), forget<MethodHandler>, nullptr);
    if (object != 0) {
        objects.push_back(object);
    }
}

std::string DesktopBus::uniqueName() const {
    return g_dbus_connection_get_unique_name(connection.get());
}

} // namespace glidemap
