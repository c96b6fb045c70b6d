// The kernel's figures for another process: memory, processor time, and wake-ups of its threads.
//
// Units:   kibibytes; seconds.
// Thread:  any.
// Errors:  all figures of a process that has exited are zero.
#pragma once

#include <sys/types.h>

#include <iosfwd>

namespace glidemap::bench {

struct Memory {
    long resident = 0;     // all resident pages, including pages shared with other programs
    long privatePages = 0; // pages that no other process maps, also those of libraries
    long written = 0;      // pages that exist nowhere else: heap, stacks, relocated data
    long pictures = 0;     // shared with the X server: window contents
};

// Returns the time of the monotonic clock, in seconds.
double now();

Memory memoryOf(pid_t process);

// Returns the CPU time that the process uses within `seconds`.
double cpuSecondsDuring(pid_t process, double seconds);

// Counts the wake-ups within `seconds`, prints them per thread and returns their sum.
long wakeUpsDuring(pid_t process, double seconds, std::ostream& output);

// Waits until none of the process's threads has run for half a second.
void waitUntilSettled(pid_t process);
} // namespace glidemap::bench
