#pragma once

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

typedef const void* CFTypeRef;

CFTypeRef CFRetain(CFTypeRef cf);
void CFRelease(CFTypeRef cf);

#ifdef __cplusplus
}
#endif
