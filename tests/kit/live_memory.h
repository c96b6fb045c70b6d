// Counts the memory that the program has allocated, so that tests can check that it does not grow.
//
// Linking this file replaces the global operator new and delete of the test program; the memory of
// every thread counts.
//
// Units:   bytes, as requested.
// Thread:  any.
#pragma once

#include <cstddef>

namespace glidemap::test {

std::size_t liveMemory();

// The maximum since the program started or since the last reset.
std::size_t peakLiveMemory();
void resetPeakLiveMemory();

// The number of allocations since the program started.
std::size_t allocationCount();

} // namespace glidemap::test
