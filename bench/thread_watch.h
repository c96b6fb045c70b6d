// What the kernel says about the threads of this process: whether one sleeps, and how often each
// has been switched away from.
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
    int statFile = -1; // kept open: the state is asked for between any two measurements
};

struct ThreadSwitches {
    pid_t thread = 0;
    std::string name;
    std::int64_t voluntary = 0;   // it waited for something
    std::int64_t involuntary = 0; // another one was given its turn
};

// Of every thread of the process, in the order of their ids.
std::vector<ThreadSwitches> switchesOfAllThreads();

} // namespace glidemap::bench
