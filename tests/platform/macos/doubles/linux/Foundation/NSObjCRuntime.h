// Defines macros that the system's headers use in declarations: for typed enumerations, non-null
// pointers and argument lists that end with nil.
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
