// Sets the name and the priority of the calling thread.
//
// Thread:  any; affects the calling thread only.
// Errors:  none. If the user may not raise priorities, the thread keeps the default priority.
#pragma once

#include <string_view>

namespace glidemap {

// Uses only the last 15 characters of the name, because the kernel does not accept more.
void nameThread(std::string_view name);

// Sets the name, and raises the priority to keep latency low on a busy machine.
void setUpResponsiveThread(std::string_view name);

} // namespace glidemap
