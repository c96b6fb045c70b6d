#include "doubles/foundation_objects.h"

#import <Foundation/Foundation.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <map>
#include <mutex>
#include <vector>

namespace {

std::recursive_mutex guard;
std::map<NSObject*, NSUInteger> owners;
thread_local std::vector<std::vector<NSObject*>> pools;

} // namespace

namespace glidemap::test {

Pool::Pool() : pool([[NSAutoreleasePool alloc] init]) {}

Pool::~Pool() {
    [static_cast<NSAutoreleasePool*>(pool) drain];
}

std::multiset<std::string> livingCocoaObjects() {
    const std::lock_guard lock(guard);
    std::multiset<std::string> classes;
    for (const auto& [object, count] : owners) {
        if (count != 0) {
            classes.insert(class_getName(object_getClass(object)));
        }
    }
    return classes;
}

} // namespace glidemap::test

@implementation NSObject
+ (void)initialize {
}
+ (Class)class {
    return self;
}
+ (id)alloc {
    NSObject* made = static_cast<NSObject*>(std::calloc(1, class_getInstanceSize(self)));
    object_setClass(made, self);
    const std::lock_guard lock(guard);
    owners[made] = 1;
    return made;
}
+ (id)new {
    return [[self alloc] init];
}
- (id)init {
    return self;
}
- (id)retain {
    const std::lock_guard lock(guard);
    ++owners[self];
    return self;
}
- (oneway void)release {
    const std::lock_guard lock(guard);
    if (owners[self] == 0) {
        ADD_FAILURE() << "released too often: " << class_getName(object_getClass(self));
        return;
    }
    if (--owners[self] == 0) {
        [self dealloc];
    }
}
- (id)autorelease {
    [NSAutoreleasePool addObject:self];
    return self;
}
- (NSUInteger)retainCount {
    const std::lock_guard lock(guard);
    return owners[self];
}
- (void)dealloc {
    owners.erase(self);
    std::free(self);
}
@end

@implementation NSString
- (const char*)UTF8String {
    return "";
}
- (NSUInteger)length {
    return 0;
}
@end

@implementation NSConstantString
- (id)retain {
    return self;
}
- (oneway void)release {
}
- (id)autorelease {
    return self;
}
- (const char*)UTF8String {
    return bytes;
}
- (NSUInteger)length {
    return count;
}
@end

@implementation NSAutoreleasePool
- (id)init {
    pools.emplace_back();
    return self;
}
+ (void)addObject:(id)object {
    if (pools.empty()) {
        ADD_FAILURE() << "autoreleased without a pool: " << class_getName([object class]);
        return;
    }
    pools.back().push_back(object);
}
- (void)drain {
    for (NSObject* object : pools.back()) {
        [object release];
    }
    pools.pop_back();
    [self release];
}
@end

std::size_t glidemap::test::livingInstances(const std::string& className) {
    const std::lock_guard lock(guard);
    return static_cast<std::size_t>(
        std::count_if(owners.begin(), owners.end(), [&className](const auto& entry) {
            return className == class_getName(object_getClass(entry.first));
        }));
}
