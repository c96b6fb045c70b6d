// A Mac's C library shows C++ all that it has. Of musl's that is POSIX's and BSD's, without what is GNU's alone.
#pragma once

#ifndef _BSD_SOURCE
#define _BSD_SOURCE 1
#endif
#ifndef _XOPEN_SOURCE
#define _XOPEN_SOURCE 700
#endif

#include_next <features.h>
