// Moves a launched process into a systemd unit of its own. In our unit, the process would be killed
// when the unit stops, and desktops would attribute the windows of the process to this program.
//
// Thread:  the desktop thread; does not block.
// Errors:  none. Without systemd, the process stays in its unit.
#pragma once

#include <sys/types.h>

#include <string>
#include <string_view>

namespace glidemap {

// `identifier` is the id of the desktop entry, with or without ".desktop".
void moveIntoScope(std::string_view identifier, pid_t process);

// Returns "app-glidemap-org.example.App-1234.scope", for example. All characters of the identifier
// except letters, digits and "._:" are escaped.
std::string scopeName(std::string_view identifier, pid_t process);

} // namespace glidemap
