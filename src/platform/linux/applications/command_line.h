// Extracts the program from a command, to compare the Exec key of a desktop entry with the
// arguments of a process. Wrappers that start another program (env, python3, snap run …) are
// skipped.
//
// Thread:  any.
// Errors:  none. For a command that does not identify a program, such as an interpreter without a
//          script, the result is empty.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// Returns the program's file name without its folder; empty if the command has no program.
std::string programOf(const std::vector<std::string>& words);

// Returns the application id of a `flatpak run …` command; empty for other commands.
std::string flatpakOf(const std::vector<std::string>& words);

// Returns the game number N of `steam steam://rungameid/N`; empty for other commands.
std::string steamGameOf(const std::vector<std::string>& words);

// Returns the text after the last slash.
std::string fileNameOf(std::string_view path);

} // namespace glidemap
