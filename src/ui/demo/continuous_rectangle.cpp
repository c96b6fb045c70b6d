#include "ui/demo/continuous_rectangle.h"

#include <QPointF>
#include <QRectF>
#include <algorithm>

namespace glidemap::demo {

namespace {

// Distances from the corner point along an edge, in radii. They describe the curve x³ + y³ = 1,
// scaled so that it shares its midpoint with a circular corner of radius 1. Where the curve meets
// an edge, its curvature is zero. Two Bézier curves approximate the curve. They are mirror images
// of each other across the diagonal. Three control points of each Bézier curve lie on an edge, so
// its curvature is zero there, too.
constexpr double leaves = 1.42;   // the curve leaves the edge here
constexpr double pulls = 1.043;   // gives the midpoint the curvature of x³ + y³ = 1
constexpr double points = 0.5858; // the tangent at the midpoint crosses the edge here
constexpr double middle = 0.2929; // distance of the midpoint from both edges: 1 - 1/√2

// Adds one corner to the path. The unit vectors `back` and `onwards` point from the corner along
// the previous and the next edge.
void addCorner(QPainterPath& path, QPointF corner, QPointF back, QPointF onwards, double radius) {
    const QPointF one = back * radius;
    const QPointF other = onwards * radius;
    path.lineTo(corner + one * leaves);
    path.cubicTo(corner + one * pulls, corner + one * points, corner + (one + other) * middle);
    path.cubicTo(corner + other * points, corner + other * pulls, corner + other * leaves);
}

} // namespace

QPainterPath continuousRectangle(const QRectF& rectangle, double radius) {
    const QPointF right(1, 0);
    const QPointF down(0, 1);
    const double fitting = std::min(radius, std::min(rectangle.width(), rectangle.height()) / 3);
    QPainterPath path;
    path.moveTo(rectangle.topLeft() + right * fitting * leaves);
    addCorner(path, rectangle.topRight(), -right, down, fitting);
    addCorner(path, rectangle.bottomRight(), -down, -right, fitting);
    addCorner(path, rectangle.bottomLeft(), right, -down, fitting);
    addCorner(path, rectangle.topLeft(), down, right, fitting);
    path.closeSubpath();
    return path;
}

} // namespace glidemap::demo
