// The basic types of Objective-C. BOOL is bool on arm64, and signed char on x86_64.
#pragma once

typedef struct objc_class* Class;
typedef struct objc_object* id;
typedef struct objc_selector* SEL;
#if defined(__arm64__)
typedef bool BOOL;
#else
typedef signed char BOOL;
#endif
#define YES __objc_yes
#define NO __objc_no
#define nil nullptr
#define Nil nullptr
