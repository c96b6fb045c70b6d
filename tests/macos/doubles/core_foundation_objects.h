// Core Foundation's objects as the doubles have them: each knows how many owners it has.
//
// Errors:  one that is released more often than it was made and retained fails the running test.
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
    int owners = 1;
};

// The object behind one of the system's references; made by a double and alive, or the running test
// fails and null is answered.
Object* objectOf(CFTypeRef reference);

// Core Foundation's constants are objects that nobody made and nobody releases.
class Constant {
public:
    explicit Constant(std::string text) : name(std::move(text)) {}

    const std::string name;
};

// The name of a constant.
std::string nameOf(CFTypeRef constant);

struct Array : Object {
    explicit Array(std::vector<const void*> entries)
        : Object("CFArray"), values(std::move(entries)) {}

    const std::vector<const void*> values;
};

struct Dictionary : Object {
    Dictionary() : Object("CFDictionary") {}

    std::vector<std::pair<CFTypeRef, CFTypeRef>> entries;
};

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
