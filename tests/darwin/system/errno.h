// On a Mac errno calls a function with another name.
#pragma once

#include_next <errno.h>

#ifdef __cplusplus
extern "C" {
#endif
int* __error(void);
#ifdef __cplusplus
}
#endif

#undef errno
#define errno (*__error())
