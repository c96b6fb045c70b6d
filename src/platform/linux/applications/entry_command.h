// Builds the command of a desktop entry: its Exec key with field codes expanded, in a terminal if
// the entry requires one.
//
// Thread:  the entry's thread.
// Errors:  returns an empty command and the reason as text.
#pragma once

#include <string>
#include <vector>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

struct EntryCommand {
    std::vector<std::string> words; // empty on failure
    std::string problem;            // the reason of a failure
};

// `url` is the URL to open; empty for none.
EntryCommand commandOf(GDesktopAppInfo* entry, const std::string& url);

// The values of field codes. They are quoted like GIO does, for a command that is split like a
// shell's.
struct FieldValues {
    std::string name;
    std::string icon;
    std::string path; // of the .desktop file
    std::string url;
};
std::string withFieldCodes(const std::string& exec, const FieldValues& values);

// Returns the words to put before a command to run it in the first installed terminal; empty if no
// terminal is installed.
std::vector<std::string> terminalPrefix();

} // namespace glidemap
