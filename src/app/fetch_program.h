// Fetches with a separate program. The libraries for HTTPS are by far the largest that a fetch
// needs, and are used for a moment once a day. The helper process loads them only for that moment,
// and the start of the main program does not wait for it.
//
// The helper is called with the URL. It writes the body to standard output and exits with success,
// or else writes one line about the failure to standard error. It limits its own time and the size
// of the body.
//
// Thread:  the main thread, during the life of the QCoreApplication. Pending fetches end with it.
// Owner:   as Fetch says.
// Errors:  a helper that cannot be started, or that crashes, is a transport error.
#pragma once

#include "app/fetch.h"

#include <chrono>
#include <filesystem>

namespace glidemap {

// The helper starts after `rest`, which keeps the processor free while a window opens.
Fetch fetchByProgram(std::filesystem::path program,
                     std::chrono::milliseconds rest = std::chrono::milliseconds(500));

// The helper that is installed with this program.
std::filesystem::path installedFetchProgram();

} // namespace glidemap
