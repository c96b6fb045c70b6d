// A backend's private connection to the session bus. Its unique name is known only to the services
// that the backend sends it to.
//
// Thread:  the desktop thread opens, uses and destroys it, and runs all callbacks; none runs after
//          the destruction.
// Owner:   a backend.
// Errors:  a lost connection is reported as the disappearance of its names.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

using GDBusConnection = struct _GDBusConnection;
using GError = struct _GError;
using GVariant = struct _GVariant;

namespace glidemap {

struct BusObject {
    std::string name;
    std::string path;
    std::string interface;
};

// Whether the error means that the object or its method is missing: not yet available, or another
// version.
bool isUnknownOnTheBus(const GError& error);

class DesktopBus {
public:
    // Returns null if the bus is missing, or does not respond within some seconds.
    static std::unique_ptr<DesktopBus> open();

    explicit DesktopBus(GDBusConnection* opened);
    DesktopBus(const DesktopBus&) = delete;
    DesktopBus& operator=(const DesktopBus&) = delete;
    ~DesktopBus();

    // Reports the current owner at once, and then every change. A restart is reported as vanished
    // and appeared.
    void watchName(const char* name, std::function<void(const std::string& owner)> appeared,
                   std::function<void()> vanished);

    // Exactly one of the two is null. The reply has no time limit of its own.
    using Answer = std::function<void(GVariant* values, const GError* error)>;
    void call(const BusObject& object, const char* method, GVariant* arguments, Answer answer);

    // Sends a call without a reply. It is sent before the connection closes.
    void send(const BusObject& object, const char* method, GVariant* arguments);

    // Receives every signal of the object; an empty path or interface matches any.
    using SignalHandler = std::function<void(const std::string& signal, GVariant* values)>;
    unsigned subscribe(const BusObject& object, SignalHandler handler);
    void unsubscribe(unsigned subscription);

    // Blocks on the bus daemon only, not on other programs.
    bool isOwned(const char* name) const;

    std::string uniqueName() const;
    GDBusConnection* connection() const { return _connection; }

private:
    GDBusConnection* _connection;
    std::vector<unsigned> watches;
    std::vector<unsigned> subscriptions;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
};

// Whether XDG_CURRENT_DESKTOP contains this name ("KDE", "GNOME").
bool isCurrentDesktop(const std::string& desktop);

} // namespace glidemap
