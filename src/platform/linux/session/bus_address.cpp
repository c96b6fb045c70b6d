#include "platform/linux/session/bus_address.h"

#include <unistd.h>

#include <cstdlib>

namespace glidemap {

namespace {

std::optional<std::string> fromEnvironment(const char* variable) {
    const char* const value = std::getenv(variable);
    return value != nullptr && *value != '\0' ? std::optional<std::string>(value) : std::nullopt;
}

std::optional<std::string> atSocket(const std::string& path) {
    return access(path.c_str(), F_OK) == 0 ? std::optional("unix:path=" + path) : std::nullopt;
}

std::optional<std::string> systemBusAddress() {
    if (auto named = fromEnvironment("DBUS_SYSTEM_BUS_ADDRESS")) {
        return named;
    }
    for (const char* const path :
         {"/run/dbus/system_bus_socket", "/var/run/dbus/system_bus_socket"}) {
        if (auto found = atSocket(path)) {
            return found;
        }
    }
    return std::nullopt;
}

// The D-Bus libraries would start a bus of their own where there is none; nobody would be on it.
std::optional<std::string> sessionBusAddress() {
    if (auto named = fromEnvironment("DBUS_SESSION_BUS_ADDRESS")) {
        return named;
    }
    const auto folder = fromEnvironment("XDG_RUNTIME_DIR");
    return folder ? atSocket(*folder + "/bus") : std::nullopt;
}

} // namespace

std::optional<std::string> busAddress(Bus bus) {
    return bus == Bus::system ? systemBusAddress() : sessionBusAddress();
}

} // namespace glidemap
