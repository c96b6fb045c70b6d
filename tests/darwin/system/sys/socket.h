// A Mac sets no flags on a descriptor with the call that makes it, and has a socket that raises no signal. The value of
// that option is from memory.
#pragma once

#include_next <sys/socket.h>

#undef SOCK_CLOEXEC
#undef SOCK_NONBLOCK

#define SO_NOSIGPIPE 0x1022
