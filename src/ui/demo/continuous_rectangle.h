// A rounded rectangle with continuous corners: the edges run into the curves without a jump in
// curvature, so that no place can be seen where a straight line ends and an arc begins.
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
