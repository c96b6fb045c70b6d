// Formats the broadcast messages of X11 startup notification. They inform the window manager that
// the user requested a launch, so that it gives the new window the focus.
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

// Returns `new: ID="…" NAME="…"`, for example, split into pieces that fit into client messages. The
// last piece ends with a null byte. Empty fields are omitted.
std::vector<std::string> launchMessage(std::string_view kind, const LaunchFields& fields);

} // namespace glidemap
