// The user at the other end of a local socket. From memory, not checked against a Mac.
#pragma once

#include_next <unistd.h>

#ifdef __cplusplus
extern "C" {
#endif
int getpeereid(int descriptor, uid_t* user, gid_t* group);
#ifdef __cplusplus
}
#endif
