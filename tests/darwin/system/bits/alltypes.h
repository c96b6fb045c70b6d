// Basic types whose definitions on macOS differ from those on Linux. On macOS, 64-bit types are
// "long long", so std::int64_t is not long.
#ifndef __DEFINED_int64_t
#define __DEFINED_int64_t
#define __DEFINED_uint64_t
typedef long long int64_t;
typedef unsigned long long uint64_t;
#endif
#ifndef __DEFINED_off_t
#define __DEFINED_off_t
typedef long long off_t;
#endif
#ifndef __DEFINED_mode_t
#define __DEFINED_mode_t
typedef unsigned short mode_t;
#endif
#ifndef __DEFINED_dev_t
#define __DEFINED_dev_t
typedef int dev_t;
#endif
#ifndef __DEFINED_nlink_t
#define __DEFINED_nlink_t
typedef unsigned short nlink_t;
#endif
#ifndef __DEFINED_suseconds_t
#define __DEFINED_suseconds_t
typedef int suseconds_t;
#endif
#ifndef __DEFINED_clock_t
#define __DEFINED_clock_t
typedef unsigned long clock_t;
#endif
#ifndef __DEFINED_wint_t
#define __DEFINED_wint_t
typedef int wint_t;
#endif

#include_next <bits/alltypes.h>
