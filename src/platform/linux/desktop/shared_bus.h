// Provides GIO's shared session bus connection for launching applications.
//
// Thread:  any thread that runs its thread-default GLib context; `then` is called there.
// Errors:  `then` gets null if the bus is missing or does not reply within a second.
#pragma once

#include <chrono>
#include <functional>

using GDBusConnection = struct _GDBusConnection;

namespace glidemap {

inline constexpr std::chrono::milliseconds sharedBusPatience{1000};

// The connection is valid during the callback.
void withSharedBus(std::function<void(GDBusConnection* bus)> then);

} // namespace glidemap
