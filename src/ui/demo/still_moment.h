// Chooses the frame of a gesture's loop that is shown if the user prefers reduced motion.
//
// Units:   seconds since the start of the loop.
// Thread:  any; a pure function that samples the whole loop on each call.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"

namespace glidemap::demo {

// Returns the time at which the fingers are most clearly visible. If there are several such times,
// returns the latest one with the largest trail and ring, because the motion is complete then.
double stillMoment(GestureType gesture);

} // namespace glidemap::demo
