// Draws one frame of a demonstration: the pad, the trail, the ring and the fingertips, in the
// theme's current colours.
//
// Units:   the size in points; t in seconds since the start of the loop.
// Thread:  the main thread. Stateless; restores the painter's state.
// Errors:  none; an empty size draws nothing.
#pragma once

#include "core/gesture_type.h"

class QPainter;
class QRectF;
class QSizeF;

namespace glidemap::demo {

// Returns the pad's rectangle in a view of this size: as large as possible, and centred.
QRectF padIn(const QSizeF& size);

void draw(GestureType gesture, double t, QPainter& painter, const QSizeF& size);

} // namespace glidemap::demo
