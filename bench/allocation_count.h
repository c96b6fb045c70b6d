// Counts the allocations of the current thread. Linking this file replaces the global operator new.
//
// Thread:  any; each thread has its own count.
#pragma once

#include <cstdint>

namespace glidemap::bench {

std::int64_t allocationsOfThisThread();

} // namespace glidemap::bench
