#include "variant.h"

#include "desktops/program.h"

namespace glidemap::test {

OwnedVariant call(GDBusConnection* bus, const Callee& callee, const char* method,
                  GVariant* arguments) {
    constexpr auto limit = std::chrono::milliseconds(patience).count();
    return OwnedVariant(g_dbus_connection_call_sync(
        bus, callee.name.c_str(), callee.path.c_str(), callee.interface.c_str(), method, arguments,
        nullptr, G_DBUS_CALL_FLAGS_NONE, static_cast<int>(limit), nullptr, nullptr));
}

OwnedVariant property(GDBusConnection* bus, const Callee& callee, const char* name) {
    const OwnedVariant answer =
        call(bus, {callee.name, callee.path, "org.freedesktop.DBus.Properties"}, "Get",
             g_variant_new("(ss)", callee.interface.c_str(), name));
    return answer != nullptr ? childOf(answer, 0) : nullptr;
}

} // namespace glidemap::test
