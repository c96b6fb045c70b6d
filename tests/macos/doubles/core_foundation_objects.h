// Core Foundation's objects as the doubles have them: each knows how many owners it has.
//
// Errors:  one that is released more often than it was made and retained fails the running test.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <set>
#include <string>

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

// What has an owner still, by kind, in order. Empty at the end of every test.
std::multiset<std::string> livingObjects();

} // namespace glidemap::doubles
