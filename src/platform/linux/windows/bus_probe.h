// Finds out whether a message bus responds at all. A bus whose process is stopped or stuck still accepts
// connections, and the D-Bus libraries wait for it for ever, or for half a minute.
//
// Thread:  any; waits for the bus, for at most the given time.
// Errors:  a bus that cannot be reached does not respond.
#pragma once

#include <chrono>
#include <string>

namespace glidemap {

// Opens a connection of its own and begins to authenticate. An address of another kind than
// unix:path and unix:abstract counts as responding, since only the libraries can connect to it.
bool busResponds(const std::string& address, std::chrono::milliseconds patience);

// Has GIO open files of this machine only, for the rest of the process. Otherwise its file functions
// connect to the session bus where gvfs is installed, and wait for it for ever. To be called before
// other threads use GIO or read the environment.
void useFilesWithoutBus();

} // namespace glidemap
