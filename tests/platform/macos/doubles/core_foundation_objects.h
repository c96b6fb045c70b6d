// The fake Core Foundation objects, each with an owner count. On a Mac, Core Foundation is real,
// and wraps each fake object.
//
// Errors:  releasing an object too often fails the running test. On a Mac, it ends the process.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {

class Object {
public:
    explicit Object(std::string kind);
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();

    const std::string kind;
    int owners = 1; // unused on a Mac, where the system counts owners
};

// Returns a reference to the new object. The caller owns the object, as after a call to the system,
// and must release it. The object lives until its last owner releases it.
CFTypeRef handOut(Object* made);

template <typename Reference>
Reference handOutAs(Object* made) {
    return reinterpret_cast<Reference>(const_cast<void*>(handOut(made)));
}

// Returns the object behind a reference. If no fake has created the object, or it no longer exists,
// the running test fails and the function returns null.
Object* objectOf(CFTypeRef reference);

// Returns a new array, which the caller must release. The array does not retain its values.
CFArrayRef handOutArray(const std::vector<const void*>& values);

std::vector<std::pair<CFTypeRef, CFTypeRef>> entriesOf(CFDictionaryRef dictionary);

// Returns a constant text of the system, which is never released.
CFStringRef constantText(const char* text);

// Returns a constant's name: the content of a text, or a name that the tests define for another
// object.
std::string nameOf(CFTypeRef constant);

// Controls the fakes; the fixture's set-up resets it.
struct CoreFoundation {
    bool makesRunLoopSources = true;
};
CoreFoundation& coreFoundation();

// Returns the sorted kinds of all objects that still have an owner. Empty at the end of every test.
std::multiset<std::string> livingObjects();

// Releases every object of this kind until it has no owner.
void releaseAll(const std::string& kind);

} // namespace glidemap::test
