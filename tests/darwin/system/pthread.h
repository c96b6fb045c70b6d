// On macOS, a thread can name only itself, so the function does not take a thread.
#pragma once

#include_next <pthread.h>

#ifdef __cplusplus
extern "C" {
#endif
int pthread_setname_np(const char* name);
#ifdef __cplusplus
}
#endif
