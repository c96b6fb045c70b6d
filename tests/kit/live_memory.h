// How much memory the program holds at this moment, to show that it does not grow.
//
// Links a replacement of the global operator new and delete into the test program; every thread's
// memory counts.
//
// Units:   bytes, as they were asked for.
// Thread:  any.
#pragma once

#include <cstddef>

namespace glidemap::kit {

std::size_t liveMemory();

// The most since the start of the program, or since it was forgotten.
std::size_t mostLiveMemory();
void forgetMostLiveMemory();

// Allocations since the start of the program.
std::size_t allocationCount();

} // namespace glidemap::kit
