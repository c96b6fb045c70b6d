// Objective-C's objects as the doubles have them.
#pragma once

#include <cstddef>
#include <string>

namespace glidemap::doubles {

// How many instances of a class have an owner.
std::size_t livingInstances(const std::string& className);

} // namespace glidemap::doubles
