// Performs a gesture on a virtual touchpad as a person would, in real time.
//
// Thread:  one; returns when the last finger has lifted.
// Errors:  as for VirtualPad.
#pragma once

#include "core/gesture_type.h"
#include "virtual_pad.h"

#include <cstdint>

namespace glidemap::test {

// Performs the gesture on `pad`, which must have the axes and slots of ordinaryPad(). `seed` varies
// the movements.
void performOn(VirtualPad& pad, GestureType gesture, std::uint64_t seed = 1);

} // namespace glidemap::test
