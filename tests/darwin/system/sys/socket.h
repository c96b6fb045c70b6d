// A Mac sets no flags on a descriptor with the call that makes it.
#pragma once

#include_next <sys/socket.h>

#undef SOCK_CLOEXEC
#undef SOCK_NONBLOCK
