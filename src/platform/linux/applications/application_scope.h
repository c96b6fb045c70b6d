// Gives a process that was just launched a systemd unit of its own. In ours it would be killed when
// our unit is stopped, and its windows would seem to be ours to whoever asks systemd.
//
// Thread:  the desktop thread; does not wait.
// Errors:  none. Without systemd the process stays where it is.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace glidemap {

// The identifier is the desktop entry's, with or without ".desktop".
void moveIntoScope(std::string_view identifier, pid_t process);

// "app-glidemap-org.example.App-1234.scope", with what systemd does not allow escaped.
std::string scopeName(std::string_view identifier, pid_t process);

} // namespace glidemap
