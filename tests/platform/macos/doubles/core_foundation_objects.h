// The fake Core Foundation objects, each with a count of its owners. On a Mac Core Foundation is
// real, and wraps each fake object.
//
// Errors:  releasing an object too often fails the running test; a Mac ends the process.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <set>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::doubles {

class Object {
public:
    explicit Object(std::string kind);
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    virtual ~Object();

    const std::string kind;
    int owners = 1; // a Mac counts them itself
};

// Returns a reference as the system would. The receiver owns the object, which is destroyed with
// its last owner.
CFTypeRef handOut(Object* made);

template <typename Reference>
Reference handOutAs(Object* made) {
    return reinterpret_cast<Reference>(const_cast<void*>(handOut(made)));
}

// The object behind a reference. If a fake has not created it, or it is destroyed, the running test
// fails and null is returned.
Object* objectOf(CFTypeRef reference);

// Returns an array as the system would. Its values are not reference-counted.
CFArrayRef handOutArray(const std::vector<const void*>& values);

std::vector<std::pair<CFTypeRef, CFTypeRef>> entriesOf(CFDictionaryRef dictionary);

// A constant text of the system, which is never released.
CFStringRef constantText(const char* text);

// The name of a constant: a text's content, or a name that the tests define for other objects.
std::string nameOf(CFTypeRef constant);

// Controls the fakes; the fixture's set-up resets it.
struct CoreFoundation {
    bool makesRunLoopSources = true;
};
CoreFoundation& coreFoundation();

// The kinds of all objects that still have an owner, sorted. Empty at the end of every test.
std::multiset<std::string> livingObjects();

// Releases every object of this kind completely.
void releaseAll(const std::string& kind);

} // namespace glidemap::doubles
