// Sockets and pipes that no program inherits that is started, and that nobody waits on.
//
// Thread:  any.
// Owner:   whoever asks.
// Errors:  as the system has them: nothing is open, or -1, and errno says why.
#pragma once

#include "core/open_file.h"

#include <sys/types.h>

#include <array>
#include <optional>
#include <string_view>

namespace glidemap {

// To be bound to, or connected with, a file.
OpenFile localSocket();

// Whoever has connected first.
OpenFile acceptedBy(const OpenFile& socket);

// The user whose process made or accepted the connection. Nullopt if the system does not tell.
std::optional<uid_t> userAtOtherEnd(const OpenFile& socket);

// Whether all of it could be sent. The other end's having gone is no signal.
bool sendAll(const OpenFile& socket, std::string_view text);

// What is written to the second is read from the first.
bool makePipe(std::array<int, 2>& ends);

} // namespace glidemap
