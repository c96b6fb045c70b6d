// getpeereid() returns the user ID of the peer of a local socket. Its declaration was written from
// memory, and is not checked against macOS.
#pragma once

#include_next <unistd.h>

#ifdef __cplusplus
extern "C" {
#endif
int getpeereid(int descriptor, uid_t* user, gid_t* group);
#ifdef __cplusplus
}
#endif
