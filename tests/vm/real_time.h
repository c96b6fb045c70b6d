// Waits in real time, as a hand does between movements: programs that read a touchpad separate
// gestures by the clock, and the kernel has no virtual clock.
//
// Units:   seconds of the monotonic clock.
// Thread:  any.
// Errors:  if the thread's priority cannot be raised, the test fails.
#pragma once

namespace glidemap::test {

double monotonicNow();
void letTimePassUntil(double moment);

// Gives this thread priority over all threads without real-time scheduling until the object is
// destroyed. A hand does not wait for the machine, and a late movement would become another
// gesture.
class Punctual {
public:
    Punctual();
    Punctual(const Punctual&) = delete;
    Punctual& operator=(const Punctual&) = delete;
    ~Punctual();
};

} // namespace glidemap::test
