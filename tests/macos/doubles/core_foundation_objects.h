// Core Foundation's objects as the doubles have them: each knows how many owners it has. On a Mac
// Core Foundation itself is real, and an object of ours travels inside one of its own.
//
// Errors:  one that is released more often than it was made and retained fails the running test; a
//          Mac ends it.
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
    int owners = 1; // which a Mac counts itself
};

// The reference that the system would hand out. Whoever gets it owns the object, which goes with its
// last owner.
CFTypeRef handOut(Object* made);

template <typename Reference>
Reference handOutAs(Object* made) {
    return reinterpret_cast<Reference>(const_cast<void*>(handOut(made)));
}

// The object behind one of the system's references; made by a double and alive, or the running test
// fails and null is answered.
Object* objectOf(CFTypeRef reference);

// An array that is handed out. Its values are nobody's objects.
CFArrayRef handOutArray(const std::vector<const void*>& values);

std::vector<std::pair<CFTypeRef, CFTypeRef>> entriesOf(CFDictionaryRef dictionary);

// One of the system's texts that nobody releases.
CFStringRef constantText(const char* text);

// What a constant is called: the text of a text, and the words that the tests have for the others.
std::string nameOf(CFTypeRef constant);

// What a test tells the doubles to answer; reset by its set-up.
struct CoreFoundation {
    bool makesRunLoopSources = true;
};
CoreFoundation& coreFoundation();

// What has an owner still, by kind, in order. Empty at the end of every test.
std::multiset<std::string> livingObjects();

// Takes the last owner from every object of this kind.
void releaseAll(const std::string& kind);

} // namespace glidemap::doubles
