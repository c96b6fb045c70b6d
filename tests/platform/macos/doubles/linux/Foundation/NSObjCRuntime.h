// The macros with which the system's headers declare what plain C cannot express.
#pragma once

#ifndef NS_ENUM
#define NS_ENUM(type, name)                                                                        \
    enum name : type name;                                                                         \
    enum name : type
#endif
#ifndef NS_OPTIONS
#define NS_OPTIONS(type, name)                                                                     \
    enum name : type name;                                                                         \
    enum name : type
#endif
#ifndef NS_ASSUME_NONNULL_BEGIN
#define NS_ASSUME_NONNULL_BEGIN _Pragma("clang assume_nonnull begin")
#define NS_ASSUME_NONNULL_END _Pragma("clang assume_nonnull end")
#endif
#ifndef NS_REQUIRES_NIL_TERMINATION
#define NS_REQUIRES_NIL_TERMINATION __attribute__((sentinel))
#endif
