// The program that a command is really about, so that a desktop entry's Exec and a running
// process's arguments can be compared: what only starts another program (env, python3, snap run …)
// is looked through.
//
// Thread:  any.
// Errors:  none. A command that cannot be told apart from others (a bare interpreter) has no
//          program.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace glidemap {

// The words of an Exec line, unquoted, without field codes such as %U. Empty if a quote is open.
std::vector<std::string> wordsOfExec(std::string_view line);

// Without its folder; empty if there is none.
std::string programOf(const std::vector<std::string>& words);

// The application that `flatpak run …` names; empty if that is not what the command is.
std::string flatpakOf(const std::vector<std::string>& words);

// The number of the game that `steam steam://rungameid/N` names, or empty.
std::string steamGameOf(const std::vector<std::string>& words);

// What follows the last slash.
std::string fileNameOf(std::string_view path);

} // namespace glidemap
