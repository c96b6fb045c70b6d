// Inspects Objective-C objects from tests in C++.
#pragma once

#include <cstddef>
#include <set>
#include <string>

namespace glidemap::test {

// Provides an autorelease pool until it is destroyed, as the main loop does.
class Pool {
public:
    Pool();
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool();

private:
    void* pool;
};

// Returns the number of instances of a class that still have an owner.
std::size_t livingInstances(const std::string& className);

// Returns the sorted classes of all objects that still have an owner.
std::multiset<std::string> livingCocoaObjects();

} // namespace glidemap::test
