// Extracts the program from a command, to compare a desktop entry's Exec with a process's
// arguments. Wrappers that start another program (env, python3, snap run …) are skipped.
//
// Thread:  any.
// Errors:  none. A command that does not identify a program (a bare interpreter) returns an empty
//          text.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// The words of an Exec line, unquoted, without field codes such as %U. Empty if a quote is
// unclosed.
std::vector<std::string> wordsOfExec(std::string_view line);

// The file name without its folder; empty if the command has no program.
std::string programOf(const std::vector<std::string>& words);

// The application that `flatpak run …` names; empty for other commands.
std::string flatpakOf(const std::vector<std::string>& words);

// The game number in `steam steam://rungameid/N`; empty for other commands.
std::string steamGameOf(const std::vector<std::string>& words);

// The text after the last slash.
std::string fileNameOf(std::string_view path);

} // namespace glidemap
