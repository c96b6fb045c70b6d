// Wraps each fake object in the content of a real CFData, which destroys the object when its last
// owner releases it. So CFRetain and CFRelease count the owners.
#include "doubles/core_foundation_objects.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <mutex>

namespace glidemap::test {

namespace {

std::recursive_mutex guard;
std::set<const Object*> living;
std::vector<CFArrayRef> arrays; // the fake owns one reference to each

void destroy(void* bytes, void* /*info*/) {
    delete static_cast<Object*>(bytes);
}

CFAllocatorRef destroyer() {
    static const CFAllocatorRef allocator = [] {
        CFAllocatorContext context{};
        context.deallocate = destroy;
        return CFAllocatorCreate(kCFAllocatorDefault, &context);
    }();
    return allocator;
}

bool isOwnedByOthers(CFArrayRef array) {
    return CFGetRetainCount(array) > 1;
}

std::string textOf(CFStringRef string) {
    constexpr std::size_t longest = 256;
    std::array<char, longest> text{};
    CFStringGetCString(string, text.data(), longest, kCFStringEncodingUTF8);
    return text.data();
}

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
    return CFDataCreateWithBytesNoCopy(kCFAllocatorDefault, reinterpret_cast<const UInt8*>(made),
                                       sizeof(Object), destroyer());
}

Object* objectOf(CFTypeRef reference) {
    if (reference == nullptr || CFGetTypeID(reference) != CFDataGetTypeID()) {
        ADD_FAILURE() << "not created by a fake: " << reference;
        return nullptr;
    }
    const UInt8* bytes = CFDataGetBytePtr(static_cast<CFDataRef>(reference));
    return reinterpret_cast<Object*>(const_cast<UInt8*>(bytes));
}

CFArrayRef handOutArray(const std::vector<const void*>& values) {
    std::vector<const void*> entries = values;
    CFArrayRef array = CFArrayCreate(kCFAllocatorDefault, entries.data(),
                                     static_cast<CFIndex>(entries.size()), nullptr);
    const std::lock_guard lock(guard);
    arrays.push_back(static_cast<CFArrayRef>(CFRetain(array)));
    return array;
}

std::vector<std::pair<CFTypeRef, CFTypeRef>> entriesOf(CFDictionaryRef dictionary) {
    const auto count = static_cast<std::size_t>(CFDictionaryGetCount(dictionary));
    std::vector<CFTypeRef> keys(count);
    std::vector<CFTypeRef> values(count);
    CFDictionaryGetKeysAndValues(dictionary, keys.data(), values.data());
    std::vector<std::pair<CFTypeRef, CFTypeRef>> entries;
    for (std::size_t index = 0; index < count; ++index) {
        entries.emplace_back(keys[index], values[index]);
    }
    return entries;
}

CFStringRef constantText(const char* text) {
    return CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingUTF8);
}

std::string nameOf(CFTypeRef constant) {
    if (constant == nullptr) {
        return "null";
    }
    if (constant == kCFRunLoopCommonModes) {
        return "common modes";
    }
    if (CFGetTypeID(constant) == CFBooleanGetTypeID()) {
        return CFBooleanGetValue(static_cast<CFBooleanRef>(constant)) ? "true" : "false";
    }
    if (CFGetTypeID(constant) == CFStringGetTypeID()) {
        return textOf(static_cast<CFStringRef>(constant));
    }
    return constant == CFRunLoopGetMain() ? "main run loop" : "something else";
}

std::multiset<std::string> livingObjects() {
    const std::lock_guard lock(guard);
    std::multiset<std::string> kinds;
    for (const Object* object : living) {
        kinds.insert(object->kind);
    }
    for (CFArrayRef array : arrays) {
        if (isOwnedByOthers(array)) {
            kinds.insert("CFArray");
        }
    }
    return kinds;
}

// Supports only arrays: they are the only objects that the program never releases before it exits.
void releaseAll(const std::string& kind) {
    EXPECT_EQ(kind, "CFArray");
    const std::lock_guard lock(guard);
    for (CFArrayRef array : std::exchange(arrays, {})) {
        while (isOwnedByOthers(array)) {
            CFRelease(array);
        }
        CFRelease(array);
    }
}

} // namespace glidemap::test
