// A private connection of a window backend to the session bus. Only the services to which the
// backend sends its unique name know that name.
//
// Thread:  the desktop thread opens, uses and destroys it, and runs all callbacks. No callback runs
//          after its destruction.
// Owner:   a backend.
// Errors:  if the connection is lost, all watched names are reported as vanished.
#pragma once

#include "platform/linux/desktop/glib_owner.h"

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

// Whether the error means that the object or its method does not exist: it is not available yet, or
// the service has another version.
bool isUnknownOnTheBus(const GError& error);

// The value in a reply of type "(b)", or of type "(v)" that holds a boolean. Nullopt for another
// type, and for null.
std::optional<bool> booleanIn(GVariant* reply);

// The value in a reply of type "(v)". Null for another type, and for null.
GlibOwner<GVariant> variantIn(GVariant* reply);

// The texts in a reply of type "(as)". Nullopt for another type, and for null.
std::optional<std::vector<std::string>> wordsIn(GVariant* reply);

class DesktopBus {
public:
    // Returns null if the bus is missing, or does not respond within a few seconds.
    static std::unique_ptr<DesktopBus> open();

    explicit DesktopBus(GlibOwner<GDBusConnection> opened);
    DesktopBus(const DesktopBus&) = delete;
    DesktopBus& operator=(const DesktopBus&) = delete;
    ~DesktopBus();

    // Reports the name's current owner immediately, and then every change. A restart of the owner
    // is reported as vanished and then appeared.
    void watchName(const char* name, std::function<void(const std::string& owner)> appeared,
                   std::function<void()> vanished);

    // Exactly one of the arguments is null. There is no time limit for the reply.
    using Answer = std::function<void(GVariant* values, const GError* error)>;
    void call(const BusObject& object, const char* method, GVariant* arguments, Answer answer);

    // Calls a method without waiting for a reply. The call is sent before the connection closes.
    void send(const BusObject& object, const char* method, GVariant* arguments);

    // Calls the handler for every signal of the object. An empty path or interface matches all.
    using SignalHandler = std::function<void(const std::string& signal, GVariant* values)>;
    unsigned subscribe(const BusObject& object, SignalHandler handler);
    void unsubscribe(unsigned subscription);

    // Blocks until the bus daemon replies, but does not wait for other programs.
    bool isOwned(const char* name) const;

    std::string uniqueName() const;
    GDBusConnection* connection() const { return _connection.get(); }

private:
    GlibOwner<GDBusConnection> _connection;
    std::vector<unsigned> watches;
    std::vector<unsigned> subscriptions;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
};

// Whether XDG_CURRENT_DESKTOP contains this name, such as "KDE" or "GNOME".
bool isCurrentDesktop(const std::string& desktop);

} // namespace glidemap
