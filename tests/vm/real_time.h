// Real time, which a hand takes: what reads a touchpad tells gestures apart by the clock, and no
// virtual one reaches into the kernel.
//
// Units:   seconds of the monotonic clock.
// Thread:  any.
// Errors:  a thread that cannot be made punctual is a failure of the test.
#pragma once

namespace glidemap::vm {

double monotonicNow();
void letTimePassUntil(double moment);

// While it lives, this thread goes before all others inside the kernel: a hand does not wait for
// what the machine is busy with, and one that comes late makes another gesture.
class Punctual {
public:
    Punctual();
    Punctual(const Punctual&) = delete;
    Punctual& operator=(const Punctual&) = delete;
    ~Punctual();
};

} // namespace glidemap::vm
