// Where the desktop's D-Bus buses are.
//
// Errors:  a bus that would first have to be started is absent.
#pragma once

#include <optional>
#include <string>

namespace glidemap {

enum class Bus { system, session };

// As far as can be told without asking the bus.
std::optional<std::string> busAddress(Bus bus);

} // namespace glidemap
