// Reads and writes the Exec key of desktop entries according to its quoting rules.
//
// Errors:  none; an invalid command has no program.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// Returns the value of the Exec key. It still needs the escaping that the file format requires.
std::string execLineOf(const std::filesystem::path& program);

// Returns the first word without quotes: a name or a path.
std::optional<std::string> programOfExecLine(const std::string& line);

// Returns the file that a session would execute: `program` itself if it is an absolute path,
// otherwise the file with this name in the folders of `searchPath`, which are separated by colons.
// Nullopt if no such file is executable.
std::optional<std::filesystem::path> findProgram(const std::string& program,
                                                 std::string_view searchPath);

} // namespace glidemap
