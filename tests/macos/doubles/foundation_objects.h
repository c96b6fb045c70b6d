// Objective-C's objects as the doubles have them, for tests that are written in C++.
#pragma once

#include <cstddef>
#include <set>
#include <string>

namespace glidemap::doubles {

// Keeps what is given to the pool until it goes, as the main loop's does in the program.
class Pool {
public:
    Pool();
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;
    ~Pool();

private:
    void* pool;
};

// How many instances of a class have an owner.
std::size_t livingInstances(const std::string& className);

// The class of each object that has an owner, in order.
std::multiset<std::string> livingCocoaObjects();

} // namespace glidemap::doubles
