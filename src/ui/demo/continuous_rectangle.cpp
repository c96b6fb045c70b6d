#include "ui/demo/continuous_rectangle.h"

#include <QPointF>
#include <QRectF>
#include <algorithm>

namespace glidemap::demo {

namespace {

// Distances, in radii, from where the edges would meet, along an edge. They are those of the curve
// x³ + y³ = 1 whose middle is the middle of the circular corner with this radius: its curvature
// grows from nothing at the edge. Two Bézier curves, mirrored at the diagonal, follow it; the three
// points on the edge are on one line, hence no curvature at its end.
constexpr double leaves = 1.42;   // here the curve parts from the edge
constexpr double pulls = 1.043;   // makes the curvature in the middle that of x³ + y³ = 1
constexpr double points = 0.5858; // where the tangent in the middle crosses the edge
constexpr double middle = 0.2929; // how far the middle is from both edges: 1 - 1/√2

// From one edge to the next around a corner; the unit vectors lead away from it along either edge.
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
