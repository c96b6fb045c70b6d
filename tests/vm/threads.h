// Queries the kernel about the threads of a process.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace glidemap::test {

// Returns the thread ids of this process, ascending.
std::vector<int> threadsOfProcess();

// Returns the threads of this process whose names begin with `beginning`.
std::vector<int> threadsNamed(const std::string& beginning);

// Returns how often a thread of this process has gone to sleep voluntarily. Each wake-up adds one.
std::int64_t sleepsOf(int thread);

// Returns whether all the given threads of this process are asleep.
bool areAsleep(const std::vector<int>& threads);

// Returns whether all threads of a process are asleep, which means that it has processed all events
// of its devices.
bool isProcessAsleep(const std::string& process);

} // namespace glidemap::test
