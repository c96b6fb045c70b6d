// The one moment of a gesture's loop that says most about it, for those who want nothing to move.
//
// Units:   seconds since the start of the loop.
// Thread:  any; a pure function, which looks at the whole loop each time.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"

namespace glidemap::demo {

// The latest moment, so that the motion is done, of those at which the fingers are most clearly to
// be seen and, of these, the trail or the ring, too.
double stillMoment(GestureType gesture);

} // namespace glidemap::demo
