// On a Mac, socket() takes no flags, and a socket option suppresses SIGPIPE. The option's value is
// from memory and not checked against a Mac.
#pragma once

#include_next <sys/socket.h>

#undef SOCK_CLOEXEC
#undef SOCK_NONBLOCK

#define SO_NOSIGPIPE 0x1022
