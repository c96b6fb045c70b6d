// Checks whether a message bus responds. A bus whose process is stopped or stuck still accepts
// connections, and the D-Bus libraries would wait for it for half a minute or without limit.
//
// Thread:  any; blocks for at most the given time.
// Errors:  none; a bus that cannot be reached counts as not responding.
#pragma once

#include <chrono>
#include <string>

namespace glidemap {

// Opens a separate connection and starts authentication. Only unix:path and unix:abstract addresses
// are checked. Other addresses count as responding, because only the libraries can connect to them.
bool busResponds(const std::string& address, std::chrono::milliseconds patience);

// Restricts GIO to local files for the rest of the process. Otherwise, if gvfs is installed, GIO's
// file functions connect to the session bus and wait without limit. Must be called before other
// threads use GIO or read the environment.
void useFilesWithoutBus();

} // namespace glidemap
