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

// Quotes the values as GIO does.
std::string withFieldCodes(const std::string& exec, const FieldValues& values);

// Returns the words of an Exec line when there is no file or URL to open.
std::vector<std::string> wordsOfExecLine(const std::string& line);

// Returns the Exec value that starts this program, before the file format's own escaping.
std::string execLineOf(const std::filesystem::path& program);

// The file that a session would execute: at the absolute path, or found by name in the folders of
// `searchPath`, separated by colons. Nullopt if no such file is executable.
std::optional<std::filesystem::path> findProgram(const std::string& program,
                                                 std::string_view searchPath);

} // namespace glidemap
