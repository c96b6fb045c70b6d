// The C library of macOS declares all its functions in C++. To match it, this header selects POSIX
// and BSD from musl, without GNU extensions.
#pragma once

#ifndef _BSD_SOURCE
#define _BSD_SOURCE 1
#endif
#ifndef _XOPEN_SOURCE
#define _XOPEN_SOURCE 700
#endif

#include_next <features.h>
