// Moves a launched process into its own systemd unit. In our unit it would be killed when that unit
// stops, and systemd would attribute its windows to this program.
//
// Thread:  the desktop thread; does not wait.
// Errors:  none. Without systemd the process stays in its unit.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace glidemap {

// `identifier` is the desktop entry's id, with or without ".desktop".
void moveIntoScope(std::string_view identifier, pid_t process);

// "app-glidemap-org.example.App-1234.scope", with characters that systemd does not allow escaped.
std::string scopeName(std::string_view identifier, pid_t process);

} // namespace glidemap
