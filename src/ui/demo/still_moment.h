// The most expressive moment of a gesture's loop, shown if the user prefers reduced motion.
//
// Units:   seconds since the start of the loop.
// Thread:  any; a pure function that samples the whole loop on each call.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"

namespace glidemap::demo {

// Prefers the moments with the most visible fingers, then those with the most visible trail and
// ring. Returns the latest of them, because the motion is then complete.
double stillMoment(GestureType gesture);

} // namespace glidemap::demo
