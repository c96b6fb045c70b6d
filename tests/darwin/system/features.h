// The C library of macOS makes all its functions visible to C++ code. To match it, this header
// selects the POSIX and BSD functions of musl, without GNU extensions.
#pragma once

#ifndef _BSD_SOURCE
#define _BSD_SOURCE 1
#endif
#ifndef _XOPEN_SOURCE
#define _XOPEN_SOURCE 700
#endif

#include_next <features.h>
