// Fetches by a program of its own, which ends once it is done. What speaks HTTPS is by far the largest
// part of what could be fetched with, and is needed for a moment a day: so it is loaded for that
// moment, in another process, and whoever starts the program does not wait for it.
//
// The program is called with the address. It writes the body to its standard output, ends with
// success, or else with a word on its standard error about what went wrong; its time and the size of
// the body are its own to limit.
//
// Thread:  the main thread, while there is a QCoreApplication; with that what is under way ends, too.
// Owner:   as Fetch says.
// Errors:  a program that cannot be started, or that crashes, is an error of the transport.
#pragma once

#include "app/fetch.h"

#include <chrono>
#include <filesystem>

namespace glidemap {

// The program starts after a rest, which is that of whoever fetches while a window opens.
Fetch fetchByProgram(std::filesystem::path program,
                     std::chrono::milliseconds rest = std::chrono::milliseconds(500));

// The one that is installed with this program.
std::filesystem::path installedFetchProgram();

} // namespace glidemap
