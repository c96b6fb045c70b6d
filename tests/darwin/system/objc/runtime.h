// The runtime functions with which the contract tests check whether a class has a method.
#pragma once

#include <objc/objc.h>

extern "C" {
typedef struct objc_method* Method;
Method class_getClassMethod(Class type, SEL name);
Method class_getInstanceMethod(Class type, SEL name);
const char* sel_getName(SEL selector);
}
