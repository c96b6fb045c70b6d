// Draws one frame of a demonstration: the pad, the trail, the ring and the fingertips.
//
// Units:   the size in points; t in seconds since the start of the loop.
// Thread:  the main thread; keeps nothing.
// Errors:  none.
#pragma once

#include "core/gesture_type.h"

class QPainter;
class QSizeF;

namespace glidemap::demo {

void draw(GestureType gesture, double t, QPainter& painter, const QSizeF& size);

} // namespace glidemap::demo
