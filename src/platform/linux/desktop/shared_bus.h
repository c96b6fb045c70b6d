// Provides GIO's shared session bus connection, for launching.
//
// Thread:  a thread that runs its default GLib context, which calls `then`.
// Errors:  `then` receives null if the bus is missing or does not reply within a second.
#pragma once

#include <chrono>
#include <functional>

using GDBusConnection = struct _GDBusConnection;

namespace glidemap {

inline constexpr std::chrono::milliseconds sharedBusPatience{1000};

// The connection is valid during the call.
void withSharedBus(std::function<void(GDBusConnection* bus)> then);

} // namespace glidemap
