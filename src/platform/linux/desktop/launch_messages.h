// Formats the broadcast messages of startup notification. With them the window manager gives a
// launched window the focus because the user requested it.
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

// "new: ID="…" NAME="…"", split into pieces of a client message; the last ends with a 0. Empty
// fields are omitted.
std::vector<std::string> launchMessage(std::string_view kind, const LaunchFields& fields);

} // namespace glidemap
