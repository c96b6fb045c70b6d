// Finds the addresses of the system and session bus.
//
// Errors:  a bus that is not running counts as absent.
#pragma once

#include <optional>
#include <string>

namespace glidemap {

enum class Bus { system, session };

// Reads the environment and checks the usual sockets; does not connect to the bus.
std::optional<std::string> busAddress(Bus bus);

} // namespace glidemap
