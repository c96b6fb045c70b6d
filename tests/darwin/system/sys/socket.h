// A Mac has no flags such as SOCK_CLOEXEC in the call that creates a socket.
#pragma once

#include_next <sys/socket.h>

#undef SOCK_CLOEXEC
#undef SOCK_NONBLOCK
