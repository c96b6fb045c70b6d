// The kernel's figures for the threads of this process: whether a thread sleeps, and how often it
// was switched out.
//
// Thread:  any.
#pragma once

#include <sys/types.h>

#include <cstdint>
#include <string>
#include <vector>

namespace glidemap::bench {

pid_t thisThread();

class SleepWatch {
public:
    explicit SleepWatch(pid_t thread);
    SleepWatch(const SleepWatch&) = delete;
    SleepWatch& operator=(const SleepWatch&) = delete;
    ~SleepWatch();

    bool sleeps() const;

private:
    int statFile = -1; // kept open, so that reading the state is cheap
};

struct ThreadSwitches {
    pid_t thread = 0;
    std::string name;
    std::int64_t voluntary = 0;   // the thread waited
    std::int64_t involuntary = 0; // the thread was preempted
};

// Returns every thread of the process, in order of thread IDs.
std::vector<ThreadSwitches> switchesOfAllThreads();

} // namespace glidemap::bench
