#include "platform/linux/shell/toolkit_bus.h"

#include "platform/linux/desktop/bus_address.h"
#include "platform/linux/desktop/bus_probe.h"

#include <QDBusConnection>
#include <cstdlib>

namespace glidemap {

namespace {

constexpr const char* variable = "DBUS_SESSION_BUS_ADDRESS";

// A bus address to which connecting fails immediately.
constexpr const char* noBus = "unix:path=/dev/null";

} // namespace

// NOLINTBEGIN(concurrency-mt-unsafe): no other thread uses the environment yet
ToolkitBus::ToolkitBus() {
    const auto bus = busAddress(Bus::session);
    silent = bus && !busResponds(*bus, patience);
    if (silent) {
        const char* const value = std::getenv(variable);
        address = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
        setenv(variable, noBus, 1);
        useFilesWithoutBus();
    }
}

void ToolkitBus::finish() const {
    if (!silent) {
        return;
    }
    QDBusConnection::sessionBus(); // the connection fails, and Qt does not retry
    if (address) {
        setenv(variable, address->c_str(), 1);
    } else {
        unsetenv(variable);
    }
}
// NOLINTEND(concurrency-mt-unsafe)

} // namespace glidemap
