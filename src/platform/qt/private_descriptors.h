// Creates sockets and pipes that are non-blocking and that child processes do not inherit.
//
// Thread:  any.
// Owner:   the caller.
// Errors:  as return values: a file that is not open, nullopt or false. If a descriptor cannot be
//          created, errno is set.
#pragma once

#include "core/open_file.h"

#include <sys/types.h>

#include <array>
#include <optional>
#include <string_view>

namespace glidemap {

// Returns an unconnected Unix stream socket, for bind() or connect().
OpenFile localSocket();

// Accepts the next pending connection.
OpenFile acceptedBy(const OpenFile& socket);

// Returns the user id of the peer process, or nullopt if the system does not report it.
std::optional<uid_t> userAtOtherEnd(const OpenFile& socket);

// Returns whether the whole text was sent. A peer that has closed the connection causes no SIGPIPE.
bool sendAll(const OpenFile& socket, std::string_view text);

// ends[0] becomes the read end, ends[1] the write end.
bool makePipe(std::array<int, 2>& ends);

} // namespace glidemap
