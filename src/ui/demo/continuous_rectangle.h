// A rounded rectangle with continuous corners: curvature does not jump between edge and corner, so
// the transition is invisible.
//
// Units:   those of the rectangle.
// Thread:  any.
// Errors:  none. The radius is at most a third of the shorter side, so that corners never meet.
#pragma once

#include <QPainterPath>

class QRectF;

namespace glidemap::demo {

QPainterPath continuousRectangle(const QRectF& rectangle, double radius);

} // namespace glidemap::demo
