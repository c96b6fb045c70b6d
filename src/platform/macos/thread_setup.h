// The name and the class of service of the calling thread.
//
// Thread:  each sets itself up.
// Errors:  none. A name of more than 63 bytes is not taken by the system.
#pragma once

#include <string_view>

namespace glidemap {

void nameThread(std::string_view name);

// Names the thread, too. The class is the one of what a person is waiting to see, so that a busy
// machine does not hold it up.
void setUpResponsiveThread(std::string_view name);

} // namespace glidemap
