// Sets the calling thread's name and quality of service.
//
// Thread:  each thread for itself.
// Errors:  none. The system rejects names of more than 63 bytes.
#pragma once

#include <string_view>

namespace glidemap {

void nameThread(std::string_view name);

// Also names the thread. Sets the user-interactive class, to keep latency low on a busy machine.
void setUpResponsiveThread(std::string_view name);

} // namespace glidemap
