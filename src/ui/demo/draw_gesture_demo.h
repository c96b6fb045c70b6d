// Draws one frame of a demonstration: the pad, the trail, the ring and the fingertips, in the
// theme's colours of this moment.
//
// Units:   the size in points; t in seconds since the start of the loop.
// Thread:  the main thread; keeps nothing. The painter comes back as it was.
// Errors:  none; nothing is drawn into no space.
#pragma once

#include "core/gesture_type.h"

class QPainter;
class QRectF;
class QSizeF;

namespace glidemap::demo {

// The pad in a view of this size: as large as fits, in the middle.
QRectF padIn(const QSizeF& size);

void draw(GestureType gesture, double t, QPainter& painter, const QSizeF& size);

} // namespace glidemap::demo
