// The system's question whether this program may have access: polkit's, asked by pkexec, which
// runs the program that grants it.
//
// Thread:  start() on any. It does not wait; a thread of its own does, until the user has answered,
//          and there it calls `finished`, if there is one.
// Errors:  silent: what cannot be asked is not granted.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace glidemap {

// pkexec with the program that grants access. It is the one of the program's own installation, in
// ../libexec/glidemap, or of one below /usr. Root must never run a file that this user can write, so an
// installation in the user's own folders is passed over. Empty if there is no other.
std::vector<std::string> grantAccessCommand();
std::vector<std::string> grantAccessCommand(const std::filesystem::path& program);

// Whether the file, and each folder above it, belongs to root and cannot be written by this user. The
// path is absolute and has no links.
bool isOnlyRoots(std::filesystem::path file);

// What the command ends with where nobody could be asked, or the answer was not accepted; pkexec's own.
constexpr int notAsked = 127;

// False if the command could not be started; `finished` is not called then. It gets what the command has ended with, and
// `notAsked` if a signal has ended it.
bool startGrantPrompt(const std::vector<std::string>& command,
                      std::function<void(int exitCode)> finished = {});

} // namespace glidemap
