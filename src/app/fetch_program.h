// Fetches a URL with a separate helper program. HTTPS needs large libraries, which are used only
// about once a day. Only the helper process loads them, so they occupy no memory in the main
// program and do not delay its start.
//
// The helper gets the URL as an argument. It writes the received body to standard output. After a
// failure, it also writes one line about the failure to standard error and exits with a non-zero
// status. It limits its own run time and the size of the body.
//
// Thread:  the main thread, while the QCoreApplication exists. When it quits, pending fetches are
//          cancelled.
// Owner:   see Fetch.
// Errors:  reported as a transport error if the helper cannot be started, crashes or fails.
#pragma once

#include "app/fetch.h"

#include <chrono>
#include <filesystem>

namespace glidemap {

// The returned function starts the helper after the delay `rest`, because a check on startup must
// not delay the opening of the window.
Fetch fetchByProgram(std::filesystem::path program,
                     std::chrono::milliseconds rest = std::chrono::milliseconds(500));

// Returns the path of the helper that is installed with this program.
std::filesystem::path installedFetchProgram();

} // namespace glidemap
