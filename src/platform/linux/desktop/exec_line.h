// Reads and writes the Exec key of a desktop entry, with its quoting rules.
//
// Errors:  none; an invalid command has no program.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// Returns the value of Exec before the escaping of the file format.
std::string execLineOf(const std::filesystem::path& program);

// The first word, unquoted: a name or a path.
std::optional<std::string> programOfExecLine(const std::string& line);

// The file that a session would execute: at the absolute path, or found by name in the folders of
// `searchPath`, separated by colons. Nullopt if no such file is executable.
std::optional<std::filesystem::path> findProgram(const std::string& program,
                                                 std::string_view searchPath);

} // namespace glidemap
