// The threads of a process, as the kernel tells about them.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace glidemap::vm {

// The kernel's numbers, ascending.
std::vector<int> threadsOfProcess();

// Those of this process whose names begin so.
std::vector<int> threadsNamed(const std::string& beginning);

// How often a thread of this process has gone to sleep by itself: each time it was woken adds one.
std::int64_t sleepsOf(int thread);

// Whether these threads of this process sleep now, all of them.
bool areAsleep(const std::vector<int>& threads);

// Whether every thread of a process sleeps now: it has dealt with all that was written to its
// devices.
bool isProcessAsleep(const std::string& process);

} // namespace glidemap::vm
