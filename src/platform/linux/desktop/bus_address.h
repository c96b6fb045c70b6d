// Finds the addresses of the system bus and the session bus.
//
// Errors:  none; returns nullopt if neither the environment nor a socket indicates a bus.
#pragma once

#include <optional>
#include <string>

namespace glidemap {

enum class Bus { system, session };

// Reads the environment and checks whether the usual sockets exist. Does not connect to the bus.
std::optional<std::string> busAddress(Bus bus);

} // namespace glidemap
