// Builds the command line of a desktop entry: its Exec key with field codes expanded, in a terminal
// if the entry requires one.
//
// Thread:  the thread that uses the entry; the desktop thread in the program.
// Errors:  returns an empty command, and the reason as text.
#pragma once

#include <string>
#include <vector>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

struct EntryCommand {
    std::vector<std::string> words; // empty on failure
    std::string problem;            // the reason for a failure
};

// `url` is the URL to open, or empty.
EntryCommand commandOf(GDesktopAppInfo* entry, const std::string& url);

// Returns the words to put before a command to run it in the first installed terminal; empty if no
// terminal is installed.
std::vector<std::string> terminalPrefix();

} // namespace glidemap
