// On macOS, socket() takes no flags, and SIGPIPE is suppressed by a socket option. The option's
// value was written from memory, and is not checked against macOS.
#pragma once

#include_next <sys/socket.h>

#undef SOCK_CLOEXEC
#undef SOCK_NONBLOCK

#define SO_NOSIGPIPE 0x1022
