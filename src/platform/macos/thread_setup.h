// Sets the calling thread's name and quality of service.
//
// Thread:  any; affects the calling thread only.
// Errors:  none. The system rejects names of more than 63 bytes.
#pragma once

#include <string_view>

namespace glidemap {

void nameThread(std::string_view name);

// Sets the name, and the user-interactive quality of service, which keeps latency low on a busy
// machine.
void setUpResponsiveThread(std::string_view name);

} // namespace glidemap
