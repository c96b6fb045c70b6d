#include "ui/demo/draw_gesture_demo.h"

#include "ui/demo/continuous_rectangle.h"
#include "ui/demo/gesture_demo.h"
#include "ui/theme/theme.h"

#include <QPainter>
#include <QPolygonF>
#include <QRectF>
#include <algorithm>

namespace glidemap::demo {

namespace {

constexpr double aspect = 1.45; // the pad's width divided by its height
constexpr double faintest = 0.01;
constexpr double trailWidth = 2;

// The opacity that gives the pad's outline a contrast of at least 3:1 with the background.
constexpr double padOpacity = 0.7;

QPen penOf(Role role, double opacity, double width) {
    return {Theme::shared().color(role, opacity), width, Qt::SolidLine, Qt::RoundCap,
            Qt::RoundJoin};
}

QPointF onThePad(const QRectF& pad, Point point) {
    return {pad.x() + point.x * pad.width(), pad.y() + point.y * pad.height()};
}

// Draws the outline inside the pad's rectangle. If the pad fills the view, a line centred on the
// edge would be clipped.
void drawPad(QPainter& painter, const QRectF& pad) {
    constexpr double line = 1.5;
    constexpr double half = line / 2;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(penOf(Role::secondary, padOpacity, line));
    painter.drawPath(
        continuousRectangle(pad.adjusted(half, half, -half, -half), 0.14 * pad.height() - half));
}

// Draws a dot if all points of the trail coincide.
void drawTrail(QPainter& painter, const QRectF& pad, const std::vector<Point>& trail) {
    if (trail.size() < 2) {
        return;
    }
    QPolygonF line;
    line.reserve(static_cast<qsizetype>(trail.size()));
    for (const Point& point : trail) {
        line.append(onThePad(pad, point));
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(penOf(Role::secondary, 0.5, trailWidth));
    if (std::ranges::all_of(trail, [&](const Point& point) { return point == trail.front(); })) {
        painter.drawPoint(line.front());
    } else {
        painter.drawPolyline(line);
    }
}

void drawRing(QPainter& painter, const QRectF& pad, const Ring& ring) {
    if (ring.opacity <= faintest) {
        return;
    }
    const double radius = ring.radius * pad.height();
    painter.setBrush(Qt::NoBrush);
    painter.setPen(penOf(Role::primary, ring.opacity, 2));
    painter.drawEllipse(onThePad(pad, ring.center), radius, radius);
}

void drawFinger(QPainter& painter, const QRectF& pad, const Finger& finger) {
    if (finger.opacity <= faintest) {
        return;
    }
    const double radius = finger.scale * pad.height() * 0.075;
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::shared().color(Role::primary, finger.opacity * 0.85));
    painter.drawEllipse(onThePad(pad, finger.position), radius, radius);
}

} // namespace

QRectF padIn(const QSizeF& size) {
    const double height = std::min(size.height(), size.width() / aspect);
    const double width = height * aspect;
    return {(size.width() - width) / 2, (size.height() - height) / 2, width, height};
}

void draw(GestureType gesture, double t, QPainter& painter, const QSizeF& size) {
    const QRectF pad = padIn(size);
    if (pad.isEmpty()) {
        return;
    }
    const Frame shown = frame(gesture, t);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    drawPad(painter, pad);
    drawTrail(painter, pad, shown.trail);
    if (shown.ring) {
        drawRing(painter, pad, *shown.ring);
    }
    for (const Finger& finger : shown.fingers) {
        drawFinger(painter, pad, finger);
    }
    painter.restore();
}

} // namespace glidemap::demo
