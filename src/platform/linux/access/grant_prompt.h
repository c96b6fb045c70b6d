// The system's question whether this program may have access: polkit's, asked by pkexec, which
// runs the program that grants it.
//
// Thread:  start() on any. It does not wait; a thread of its own does, until the user has answered,
//          and there it calls `finished`, if there is one.
// Errors:  silent: what cannot be asked is not granted.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace glidemap {

// pkexec with the program that grants access, which is found beside this one, in
// ../libexec/glidemap.
std::vector<std::string> grantAccessCommand();

// False if the command could not be started; `finished` is not called then.
bool startGrantPrompt(const std::vector<std::string>& command, std::function<void()> finished = {});

} // namespace glidemap
