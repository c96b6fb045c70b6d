// What a desktop entry has one start: its Exec key with the field codes filled in, in a terminal if it wants one.
//
// Thread:  the one that holds the entry.
// Errors:  none to start, with the reason in words.
#pragma once

#include <string>
#include <vector>

using GDesktopAppInfo = struct _GDesktopAppInfo;

namespace glidemap {

struct EntryCommand {
    std::vector<std::string> words; // empty if there is nothing to start
    std::string problem;            // why there is not
};

// `url` is what the application is to open; empty for nothing.
EntryCommand commandOf(GDesktopAppInfo* entry, const std::string& url);

// "cmd %c" and its like, for a URL; quoted as GIO does it, to be split like a shell's line.
struct FieldValues {
    std::string name;
    std::string icon;
    std::string path; // of the entry's file
    std::string url;
};
std::string withFieldCodes(const std::string& exec, const FieldValues& values);

// What is written before a command, to have the first terminal run it that is installed; empty if none is.
std::vector<std::string> terminalPrefix();

} // namespace glidemap
