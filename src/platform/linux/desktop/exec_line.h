// Reads and writes the Exec key of a desktop entry by GLib's rules: first the field codes are
// replaced, then the line is split as a shell would split it.
//
// Errors:  returned as text; an invalid command has no words.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

struct SplitLine {
    std::vector<std::string> words; // empty on failure
    std::string error;              // the reason for a failure
};

// Splits and unquotes a command line without running it.
SplitLine splitLikeAShell(const std::string& line);

// The values of field codes; an empty value expands to nothing.
struct FieldValues {
    std::string name;
    std::string icon;
    std::string path; // of the .desktop file
    std::string url;
};

// Replaces the field codes in `exec`. Quotes the values as GIO does.
std::string withFieldCodes(const std::string& exec, const FieldValues& values);

// Returns the words of an Exec line for a launch without a file or URL.
std::vector<std::string> wordsOfExecLine(const std::string& line);

// Returns the Exec value that starts `program`, without the escaping that the format of desktop
// files requires in addition.
std::string execLineOf(const std::filesystem::path& program);

// Returns the file that a session would execute: `program` itself if it is an absolute path, or, if
// it contains no slash, the first executable match in the folders of `searchPath`, which are
// separated by colons. Returns nullopt for other paths, and if no executable file is found.
std::optional<std::filesystem::path> findProgram(const std::string& program,
                                                 std::string_view searchPath);

} // namespace glidemap
