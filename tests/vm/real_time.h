// Real time, which a hand takes: what reads a touchpad tells gestures apart by the clock, and no
// virtual one reaches into the kernel.
//
// Units:   seconds of the monotonic clock.
// Thread:  any.
// Errors:  none.
#pragma once

namespace glidemap::vm {

double monotonicNow();
void letTimePassUntil(double moment);

} // namespace glidemap::vm
