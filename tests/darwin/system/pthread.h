// On a Mac a thread can name only itself, so the function takes only the name.
#pragma once

#include_next <pthread.h>

#ifdef __cplusplus
extern "C" {
#endif
int pthread_setname_np(const char* name);
#ifdef __cplusplus
}
#endif
