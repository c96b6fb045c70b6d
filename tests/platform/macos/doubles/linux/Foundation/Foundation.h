#pragma once

#include <CoreFoundation/CoreFoundation.h>

#ifdef __OBJC__

#include <objc/objc.h>
#include <objc/runtime.h>

typedef long NSInteger;
typedef unsigned long NSUInteger;

@interface NSObject {
    Class isa;
}
+ (Class)class;
+ (id)alloc;
+ (id)new;
- (id)init;
- (id)retain;
- (oneway void)release;
- (id)autorelease;
- (NSUInteger)retainCount;
- (void)dealloc;
@end

@interface NSString : NSObject
- (const char*)UTF8String;
- (NSUInteger)length;
@end

// The class of @"…"; the compiler defines its layout.
@interface NSConstantString : NSString {
    const char* bytes;
    unsigned count;
}
@end

@interface NSAutoreleasePool : NSObject
+ (void)addObject:(id)object;
- (void)drain;
@end

#endif

#include <Foundation/observation.h>
#include <Foundation/values.h>
