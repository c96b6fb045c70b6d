// What the kernel says about another process: its memory, its time on a processor, and how often its
// threads woke up.
//
// Units:   kibibytes; seconds.
// Thread:  any.
// Errors:  a process that is gone counts as nothing.
#pragma once

#include <sys/types.h>

#include <iosfwd>

namespace glidemap::bench {

struct Memory {
    long resident = 0;     // all its pages in memory, those shared with other programs too
    long privatePages = 0; // no other program has them, be it that none uses the library
    long written = 0;      // of those, what exists nowhere else: the heap, stacks, relocated data
    long pictures = 0;     // shared with the X server: what its windows show
};

// Of the monotonic clock.
double now();

Memory memoryOf(pid_t process);

// Measures for that long.
double cpuSecondsDuring(pid_t process, double seconds);

// The same; tells how often each thread woke up.
long wakeUpsDuring(pid_t process, double seconds, std::ostream& told);

// Waits until none of its threads has run for half a second.
void letItSettle(pid_t process);
} // namespace glidemap::bench
