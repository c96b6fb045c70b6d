// On macOS, a thread can only name itself, so the function takes the name alone.
#pragma once

#include_next <pthread.h>

#ifdef __cplusplus
extern "C" {
#endif
int pthread_setname_np(const char* name);
#ifdef __cplusplus
}
#endif
