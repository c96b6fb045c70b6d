// A thread can name only itself on a Mac, so the function takes the name alone.
#pragma once

#include_next <pthread.h>

#ifdef __cplusplus
extern "C" {
#endif
int pthread_setname_np(const char* name);
#ifdef __cplusplus
}
#endif
