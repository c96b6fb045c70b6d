// Chooses the frame of a gesture's loop that is shown if the user prefers reduced motion.
//
// Units:   seconds since the start of the loop.
// Thread:  any; a pure function that samples the whole loop on each call.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"

namespace glidemap::demo {

// Returns the time with the most visible fingers. Of several such times, it prefers the ones with
// the most visible trail and ring, and of those the latest, because the motion is then complete.
double stillMoment(GestureType gesture);

} // namespace glidemap::demo
