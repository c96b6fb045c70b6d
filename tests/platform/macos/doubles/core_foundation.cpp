#include "doubles/core_foundation_objects.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <mutex>

namespace glidemap::test {

namespace {

struct Array : Object {
    explicit Array(std::vector<const void*> entries)
        : Object("CFArray"), values(std::move(entries)) {}

    const std::vector<const void*> values;
};

struct Dictionary : Object {
    Dictionary() : Object("CFDictionary") {}

    std::vector<std::pair<CFTypeRef, CFTypeRef>> entries;
};

// A constant object, which needs no release.
struct Constant {
    explicit Constant(std::string text) : name(std::move(text)) {}

    const std::string name;
};

std::recursive_mutex guard;
std::set<const Object*> living;

} // namespace

Object::Object(std::string made) : kind(std::move(made)) {
    const std::lock_guard lock(guard);
    living.insert(this);
}

Object::~Object() {
    const std::lock_guard lock(guard);
    living.erase(this);
}

CFTypeRef handOut(Object* made) {
    return made;
}

CFArrayRef handOutArray(const std::vector<const void*>& values) {
    return handOutAs<CFArrayRef>(new Array(values));
}

Object* objectOf(CFTypeRef reference) {
    const std::lock_guard lock(guard);
    auto* object = static_cast<Object*>(const_cast<void*>(reference));
    if (!living.contains(object)) {
        ADD_FAILURE() << "used after its last release, or not created by a fake: " << reference;
        return nullptr;
    }
    return object;
}

std::multiset<std::string> livingObjects() {
    const std::lock_guard lock(guard);
    std::multiset<std::string> kinds;
    for (const Object* object : living) {
        kinds.insert(object->kind);
    }
    return kinds;
}

void releaseAll(const std::string& kind) {
    const std::lock_guard lock(guard);
    const auto all = living;
    for (const Object* object : all) {
        if (object->kind == kind) {
            delete object;
        }
    }
}

std::vector<std::pair<CFTypeRef, CFTypeRef>> entriesOf(CFDictionaryRef dictionary) {
    return static_cast<Dictionary*>(objectOf(dictionary))->entries;
}

CFStringRef constantText(const char* text) {
    return reinterpret_cast<CFStringRef>(new Constant(text));
}

std::string nameOf(CFTypeRef constant) {
    return constant == nullptr ? "null" : static_cast<const Constant*>(constant)->name;
}

namespace {

const Constant trueConstant("true");
const Constant falseConstant("false");
const Constant defaultMode("default mode");
const Constant commonModes("common modes");
const Constant mainRunLoop("main run loop");

} // namespace

} // namespace glidemap::test

using namespace glidemap::test;

CFTypeRef CFRetain(CFTypeRef reference) {
    if (Object* object = objectOf(reference)) {
        ++object->owners;
    }
    return reference;
}

void CFRelease(CFTypeRef reference) {
    Object* object = objectOf(reference);
    if (object != nullptr && --object->owners == 0) {
        delete object;
    }
}

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFBooleanRef kCFBooleanTrue = reinterpret_cast<CFBooleanRef>(&trueConstant);
const CFBooleanRef kCFBooleanFalse = reinterpret_cast<CFBooleanRef>(&falseConstant);
const CFRunLoopMode kCFRunLoopDefaultMode = reinterpret_cast<CFRunLoopMode>(&defaultMode);
const CFRunLoopMode kCFRunLoopCommonModes = reinterpret_cast<CFRunLoopMode>(&commonModes);
const CFDictionaryKeyCallBacks kCFTypeDictionaryKeyCallBacks = {};
const CFDictionaryValueCallBacks kCFTypeDictionaryValueCallBacks = {};

CFIndex CFArrayGetCount(CFArrayRef theArray) {
    return static_cast<CFIndex>(static_cast<Array*>(objectOf(theArray))->values.size());
}

const void* CFArrayGetValueAtIndex(CFArrayRef theArray, CFIndex idx) {
    return static_cast<Array*>(objectOf(theArray))->values.at(static_cast<std::size_t>(idx));
}

CFDictionaryRef CFDictionaryCreate(CFAllocatorRef /*allocator*/, const void** keys,
                                   const void** values, CFIndex numValues,
                                   const CFDictionaryKeyCallBacks* keyCallBacks,
                                   const CFDictionaryValueCallBacks* valueCallBacks) {
    EXPECT_EQ(keyCallBacks, &kCFTypeDictionaryKeyCallBacks);
    EXPECT_EQ(valueCallBacks, &kCFTypeDictionaryValueCallBacks);
    auto* made = new Dictionary;
    for (CFIndex index = 0; index < numValues; ++index) {
        made->entries.emplace_back(keys[index], values[index]);
    }
    return handOutAs<CFDictionaryRef>(made);
}

CFRunLoopRef CFRunLoopGetMain() {
    return reinterpret_cast<CFRunLoopRef>(const_cast<Constant*>(&mainRunLoop));
}
