// Sets the name and the priority of the calling thread.
//
// Thread:  each thread for itself.
// Errors:  none. If the user may not raise a priority, the thread keeps the default one.
#pragma once

#include <string_view>

namespace glidemap {

// The kernel shows only the last 15 characters of the name.
void nameThread(std::string_view name);

// Also names the thread. The raised priority keeps latency low on a busy machine.
void setUpResponsiveThread(std::string_view name);

} // namespace glidemap
