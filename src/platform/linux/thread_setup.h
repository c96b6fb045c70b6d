// The name and the priority of the calling thread.
//
// Thread:  each sets itself up.
// Errors:  none. Where the user may not raise a priority the thread keeps the ordinary one.
#pragma once

#include <string_view>

namespace glidemap {

// The kernel shows the last 15 characters of the name.
void nameThread(std::string_view name);

// Names the thread, too. The priority is raised so that a busy
// machine does not hold up what a person is waiting to see.
void setUpResponsiveThread(std::string_view name);

} // namespace glidemap
