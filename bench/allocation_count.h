// How often this thread has asked the system for memory. Linking this replaces the global operator
// new.
//
// Thread:  each has its own count.
#pragma once

#include <cstdint>

namespace glidemap::bench {

std::int64_t allocationsOfThisThread();

} // namespace glidemap::bench
