// What launchers and the programs that they launch broadcast on an X server (startup notification), so that its window manager
// gives a new window the focus for the user's act and not for its own wish.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace glidemap {

using LaunchFields = std::vector<std::pair<std::string_view, std::string_view>>;

// "new: ID="…" NAME="…"", in the pieces that a message can carry, the last with a 0 at its end. Fields without a value
// are left out.
std::vector<std::string> launchMessage(std::string_view kind, const LaunchFields& fields);

} // namespace glidemap
