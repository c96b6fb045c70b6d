// A rounded rectangle with continuous corners: the curvature grows gradually from the edge into the
// corner, so the transition is invisible.
//
// Units:   those of the rectangle.
// Thread:  any.
// Errors:  none. The radius is limited to a third of the shorter side, so that corners never meet.
#pragma once

#include <QPainterPath>

class QRectF;

namespace glidemap::demo {

QPainterPath continuousRectangle(const QRectF& rectangle, double radius);

} // namespace glidemap::demo
