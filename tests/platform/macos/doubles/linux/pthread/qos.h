#pragma once

#include <pthread.h>

typedef unsigned int qos_class_t;
enum : qos_class_t {
    QOS_CLASS_USER_INTERACTIVE = 0x21,
    QOS_CLASS_USER_INITIATED = 0x19,
    QOS_CLASS_DEFAULT = 0x15,
    QOS_CLASS_UTILITY = 0x11,
    QOS_CLASS_BACKGROUND = 0x09,
    QOS_CLASS_UNSPECIFIED = 0x00,
};

extern "C" int pthread_set_qos_class_self_np(qos_class_t qosClass, int relativePriority);

// macOS's function names only the calling thread, so it takes no thread. This declaration overloads
// the function in Linux's <pthread.h>, which takes a thread.
int pthread_setname_np(const char* name);
