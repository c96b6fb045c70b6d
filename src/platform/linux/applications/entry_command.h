// Builds the command line of a desktop entry: its Exec key with field codes expanded, in a terminal
// if the entry requires one.
//
// Thread:  the entry's thread.
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

// The values that replace field codes. They are quoted as in GIO, because the result is split like
// a shell command.
struct FieldValues {
    std::string name;
    std::string icon;
    std::string path; // of the .desktop file
    std::string url;
};
std::string withFieldCodes(const std::string& exec, const FieldValues& values);

// Returns the words that, placed before a command, run it in the first installed terminal. Empty if
// no terminal is installed.
std::vector<std::string> terminalPrefix();

} // namespace glidemap
