// The threads of this process, as the kernel tells about them.
#pragma once

#include <cstdint>
#include <vector>

namespace glidemap::vm {

// The kernel's numbers, ascending.
std::vector<int> threadsOfProcess();

// How often a thread of this process has gone to sleep by itself: each time it was woken adds one.
std::int64_t sleepsOf(int thread);

// Whether it sleeps now.
bool isAsleep(int thread);

} // namespace glidemap::vm
