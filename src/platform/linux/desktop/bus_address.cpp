#include "platform/linux/desktop/bus_address.h"

#include "platform/linux/desktop/environment.h"

#include <unistd.h>

#include <utility>

namespace glidemap {

namespace {

std::optional<std::string> named(const char* variable) {
    std::string address = fromEnvironment(variable);
    return address.empty() ? std::nullopt : std::optional(std::move(address));
}

std::optional<std::string> atSocket(const std::string& path) {
    return access(path.c_str(), F_OK) == 0 ? std::optional("unix:path=" + path) : std::nullopt;
}

std::optional<std::string> systemBusAddress() {
    if (auto address = named("DBUS_SYSTEM_BUS_ADDRESS")) {
        return address;
    }
    for (const char* const path :
         {"/run/dbus/system_bus_socket", "/var/run/dbus/system_bus_socket"}) {
        if (auto found = atSocket(path)) {
            return found;
        }
    }
    return std::nullopt;
}

// Does not use the D-Bus libraries: if the environment contained no address, they would start a new
// bus, which has no services.
std::optional<std::string> sessionBusAddress() {
    if (auto address = named("DBUS_SESSION_BUS_ADDRESS")) {
        return address;
    }
    const std::string folder = fromEnvironment("XDG_RUNTIME_DIR");
    return folder.empty() ? std::nullopt : atSocket(folder + "/bus");
}

} // namespace

std::optional<std::string> busAddress(Bus bus) {
    return bus == Bus::system ? systemBusAddress() : sessionBusAddress();
}

} // namespace glidemap
