// Fetches a URL with a separate helper program. A fetch happens once a day and needs large
// libraries for HTTPS. Only the helper process loads them, so they occupy no memory in the main
// program and do not delay its start.
//
// The helper gets the URL as an argument. It writes the received body to standard output. After a
// failure, it also writes one line about the failure to standard error and exits with failure. It
// limits its own run time and the size of the body.
//
// Thread:  the main thread, during the life of the QCoreApplication, which also ends pending
//          fetches.
// Owner:   see Fetch.
// Errors:  a helper that cannot be started or that crashes counts as a transport error.
#pragma once

#include "app/fetch.h"

#include <chrono>
#include <filesystem>

namespace glidemap {

// Starts the helper only after the delay `rest`, so that it does not slow down the opening of the
// window.
Fetch fetchByProgram(std::filesystem::path program,
                     std::chrono::milliseconds rest = std::chrono::milliseconds(500));

// Returns the path of the helper that is installed with this program.
std::filesystem::path installedFetchProgram();

} // namespace glidemap
