// Asks polkit, through pkexec, to run the program that grants access.
//
// Thread:  start() on any thread; it does not wait. A separate thread waits for the user and then
//          calls `finished`, if set.
// Errors:  none; a prompt that cannot be shown grants no access.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace glidemap {

// The pkexec command with the program that grants access. The program comes from
// ../libexec/glidemap of this installation, or from one below /usr. Root must never run a file that
// this user can write, so installations in the user's own folders are skipped. Empty if no program
// is found.
std::vector<std::string> grantAccessCommand();
std::vector<std::string> grantAccessCommand(const std::filesystem::path& program);

// Whether root owns the file and each folder above it, and this user cannot write any of them. The
// path must be absolute and without symbolic links.
bool isWritableOnlyByRoot(std::filesystem::path file);

// pkexec's exit code if no authentication agent is running or authentication failed.
constexpr int notAsked = 127;

// Returns false if the command cannot be started; `finished` is not called then. `finished`
// receives the exit code, or `notAsked` if a signal terminated the command.
bool startGrantPrompt(const std::vector<std::string>& command,
                      std::function<void(int exitCode)> finished = {});

} // namespace glidemap
