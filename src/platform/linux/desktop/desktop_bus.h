// A connection to a D-Bus message bus, with its calls, signals and watched names. All services of
// this program use it, except the status bar, which shares Qt's connection.
//
// Each connection that is not shared has a unique name of its own.
//
// Thread:  one thread opens, uses and destroys the connection. All callbacks run on this thread, in
//          its thread-default GLib context. No callback runs after the destruction.
// Owner:   a service. The destructor closes the connection, unless it is GIO's shared one.
// Errors:  a lost connection is reported as the disappearance of all watched names, and as an error
//          of pending calls.
#pragma once

#include "platform/linux/desktop/bus_address.h"
#include "platform/linux/desktop/glib_owner.h"

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

struct BusObject {
    std::string name;
    std::string path;
    std::string interface;
};

// Selects the signals to receive. An empty field matches every value.
struct BusSignal {
    std::string service = {};
    std::string path = {};
    std::string interface = {};
    std::string name = {};
    std::string firstArgument = {};
};

enum class IfNotRunning { leave, start };

// Returns whether the error means that the object, the interface or the method does not exist, for
// example because the service is still starting or has another version.
bool isUnknownOnTheBus(const GError& error);

// Returns the value in a reply of type "(b)", or of type "(v)" if it holds a boolean. Returns
// nullopt for other types and for null.
std::optional<bool> booleanIn(GVariant* reply);

// Returns the value in a reply of type "(v)". Returns null for other types and for null.
GlibOwner<GVariant> variantIn(GVariant* reply);

// Returns the texts in a reply of type "(as)". Returns nullopt for other types and for null.
std::optional<std::vector<std::string>> wordsIn(GVariant* reply);

class DesktopBus {
public:
    using Milliseconds = std::chrono::milliseconds;

    // These two functions block. They return null if the bus is missing or refuses the connection.
    // Without an address, open() connects to the session bus, and also returns null if that bus
    // does not respond within a few seconds.
    static std::unique_ptr<DesktopBus> open();
    static std::unique_ptr<DesktopBus> open(const std::string& address);

    using Opened = std::function<void(std::unique_ptr<DesktopBus> bus)>;
    // Calls `then` later, with null on failure or after a cancellation.
    static void open(const std::string& address, GCancellable* cancellable, Opened then);

    using Shared = std::function<void(const std::shared_ptr<DesktopBus>& bus)>;
    // Calls `then` later with GIO's shared connection to the session bus, or with null if the bus
    // is missing or does not respond within a second. Used for launching programs, because GIO uses
    // this connection, too, and opening another one takes a millisecond. The callback of each call
    // must hold a copy of `bus` until the reply arrives.
    static void withShared(Shared then);

    DesktopBus(const DesktopBus&) = delete;
    DesktopBus& operator=(const DesktopBus&) = delete;
    ~DesktopBus();

    // First reports whether the name has an owner, and then every change. A restart of the owner is
    // reported as vanished and then appeared.
    void watchName(const char* name, std::function<void(const std::string& owner)> appeared,
                   std::function<void()> vanished);

    struct Call {
        BusObject object;
        std::string method;
        IfNotRunning ifNotRunning = IfNotRunning::leave;
        std::optional<Milliseconds> patience = {}; // nullopt: no limit
        GCancellable* cancellable = nullptr;
    };

    // Exactly one of `values` and `error` is null.
    using Answer = std::function<void(GVariant* values, const GError* error)>;
    // Consumes a floating reference to the arguments.
    void call(const Call& call, GVariant* arguments, Answer answer);
    void call(const BusObject& object, const char* method, GVariant* arguments, Answer answer);

    // Calls a method without waiting for a reply. The call is sent before the connection closes.
    void send(const BusObject& object, const char* method, GVariant* arguments);

    struct Reply {
        GlibOwner<GVariant> values; // null on failure
        GlibOwner<GError> error;
    };
    // Blocks until the reply arrives or the call's `patience` has passed.
    Reply wait(const Call& call, GVariant* arguments) const;

    // Blocks until the bus daemon replies, but does not wait for other programs.
    bool isOwned(const char* name) const;

    using SignalHandler = std::function<void(const std::string& signal, GVariant* values)>;
    // Calls the handler for each matching signal until unsubscribe(), which the handler may call.
    unsigned subscribe(const BusSignal& signal, SignalHandler handler);
    void unsubscribe(unsigned subscription);

    using MethodHandler = std::function<void(const std::string& sender, GVariant* arguments)>;
    // Serves one object, whose methods return nothing. `description` is its introspection XML with
    // one interface.
    void serve(const char* path, const char* description, MethodHandler handler);

    std::string uniqueName() const;

private:
    enum class Sharing { own, shared };

    DesktopBus(GlibOwner<GDBusConnection> connection, Sharing sharing);

    static std::unique_ptr<DesktopBus> owning(GDBusConnection* connection);

    const GlibOwner<GDBusConnection> connection;
    const Sharing sharing;
    std::vector<unsigned> watches;
    std::vector<unsigned> subscriptions;
    std::vector<unsigned> objects;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
};

} // namespace glidemap
