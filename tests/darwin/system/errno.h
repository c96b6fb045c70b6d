// macOS defines errno by a function with a different name than musl's.
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
