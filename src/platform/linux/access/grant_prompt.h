// Uses polkit's pkexec to run the program that grants access. pkexec asks the user for permission.
//
// Thread:  startGrantPrompt() on any thread; it does not block. A separate thread waits for the
//          command and then calls `finished`, if set.
// Errors:  none; a prompt that cannot be shown grants no access.
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

namespace glidemap {

// Returns the pkexec command line with the program that grants access. The program is searched for
// in libexec/glidemap of this installation, of /usr and of /usr/local. A program that this user
// could change is skipped, because root must never run it. Returns an empty list if no program is
// found. `program` is the path of Glidemap's own executable.
std::vector<std::string> grantAccessCommand();
std::vector<std::string> grantAccessCommand(const std::filesystem::path& program);

// Whether root owns the file and each folder above it, and this user cannot write to any of them.
// The path must be absolute and free of symbolic links.
bool isWritableOnlyByRoot(std::filesystem::path file);

// The exit code of pkexec if no authentication agent is running or authentication failed.
constexpr int notAsked = 127;

// Returns false if the command cannot be started; `finished` is not called in this case. `finished`
// gets the exit code, or `notAsked` if a signal terminated the command.
bool startGrantPrompt(const std::vector<std::string>& command,
                      std::function<void(int exitCode)> finished = {});

} // namespace glidemap
