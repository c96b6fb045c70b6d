// A connection of a backend's own to the session's bus, which it shares with nobody: its unique
// name is known to no one but whoever the backend tells it.
//
// Thread:  opened, used and destroyed on the desktop thread, where everything is reported; nothing
//          is after it is gone.
// Owner:   a backend.
// Errors:  a bus that breaks off is told as its names vanishing.
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

// Whether an error says that there is no such object, or that it has no such method: not yet, or
// in another version.
bool isUnknownOnTheBus(const GError& error);

class DesktopBus {
public:
    // Null if there is no bus, or if it accepts connections and does not respond for some seconds.
    static std::unique_ptr<DesktopBus> open();

    explicit DesktopBus(GDBusConnection* opened);
    DesktopBus(const DesktopBus&) = delete;
    DesktopBus& operator=(const DesktopBus&) = delete;
    ~DesktopBus();

    // Told at once how it is, and then every change. A restart is a vanishing and an appearing.
    void watchName(const char* name, std::function<void(const std::string& owner)> appeared,
                   std::function<void()> vanished);

    // Exactly one of the two is null. It may take as long as the other side takes.
    using Answer = std::function<void(GVariant* values, const GError* error)>;
    void call(const BusObject& object, const char* method, GVariant* arguments, Answer answer);

    // The same, where nobody needs to know. Sent before the connection ends.
    void tell(const BusObject& object, const char* method, GVariant* arguments);

    // Every signal of the object; an empty path or interface stands for any.
    using Heard = std::function<void(const std::string& signal, GVariant* values)>;
    unsigned subscribe(const BusObject& object, Heard heard);
    void unsubscribe(unsigned subscription);

    // Waits for the bus itself, and for no program on it.
    bool isOwned(const char* name) const;

    std::string uniqueName() const;
    GDBusConnection* connection() const { return _connection; }

private:
    GDBusConnection* _connection;
    std::vector<unsigned> watches;
    std::vector<unsigned> subscriptions;
    std::shared_ptr<bool> alive = std::make_shared<bool>(true);
};

// Whether the session is one of these ("KDE", "GNOME"), as it says itself.
bool isCurrentDesktop(const std::string& desktop);

} // namespace glidemap
