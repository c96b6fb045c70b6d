// The command of a desktop entry: its Exec key, with the quoting that desktop entries have.
//
// Errors:  a command that cannot be read has no program.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace glidemap {

// As the value of Exec, before it is escaped for the file.
std::string execLineOf(const std::filesystem::path& program);

// The first word, unquoted: a name or a path.
std::optional<std::string> programOfExecLine(const std::string& line);

// The file that would be run for it, as a session looks for it: at its absolute path, or by its
// name in the folders of `searchPath`, separated by colons. None if there is none that can be run.
std::optional<std::filesystem::path> findProgram(const std::string& program,
                                                 std::string_view searchPath);

} // namespace glidemap
