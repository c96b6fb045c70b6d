// Creates sockets and pipes that are non-blocking and that child processes do not inherit.
//
// Thread:  any.
// Owner:   the caller.
// Errors:  as in POSIX: the file is not open, or -1 is returned, and errno is set.
#pragma once

#include "core/open_file.h"

#include <sys/types.h>

#include <array>
#include <optional>
#include <string_view>

namespace glidemap {

// An unconnected Unix stream socket, for bind() or connect().
OpenFile localSocket();

// The next pending connection.
OpenFile acceptedBy(const OpenFile& socket);

// The user id of the peer process. Nullopt if the system does not report it.
std::optional<uid_t> userAtOtherEnd(const OpenFile& socket);

// Returns whether all of the text was sent. A closed peer raises no SIGPIPE.
bool sendAll(const OpenFile& socket, std::string_view text);

// Sets the read end first, then the write end.
bool makePipe(std::array<int, 2>& ends);

} // namespace glidemap
