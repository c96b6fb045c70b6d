#include "ui/theme/style/paint.h"

#include <QPaintDevice>
#include <QPainterPath>
#include <QStyleOption>
#include <algorithm>
#include <cmath>

namespace glidemap::style {

namespace {

// Separates the ring from the shape, so that the ring is also visible around an accent background.
constexpr double ringGap = 1;
constexpr double ringWidth = 2;

// Turns on antialiasing, and restores the painter's state on destruction.
class Drawing {
public:
    explicit Drawing(QPainter& painter) : painter(painter) {
        painter.save();
        painter.setRenderHint(QPainter::Antialiasing);
    }
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;
    ~Drawing() { painter.restore(); }

private:
    QPainter& painter;
};

void drawLine(QPainter& painter, const QPolygonF& line, double width, const QColor& drawn) {
    const Drawing drawing(painter);
    painter.setPen(QPen(drawn, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(line);
}

} // namespace

QColor color(Role role) {
    return Theme::shared().color(role);
}

QColor color(Role role, double opacity) {
    return Theme::shared().color(role, opacity);
}

double hairline(const QPainter& painter) {
    const double ratio = std::max(1.0, painter.device()->devicePixelRatioF());
    return std::floor(ratio) / ratio;
}

QRectF snapped(const QPainter& painter, const QRectF& rect) {
    const QTransform toDevice = painter.deviceTransform();
    if (toDevice.type() > QTransform::TxScale) {
        return rect;
    }
    const QRectF device = toDevice.mapRect(rect);
    const QPointF topLeft(std::round(device.left()), std::round(device.top()));
    const QPointF bottomRight(std::round(device.right()), std::round(device.bottom()));
    return toDevice.inverted().mapRect(QRectF(topLeft, bottomRight));
}

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& brush) {
    const Drawing drawing(painter);
    painter.setPen(Qt::NoPen);
    painter.setBrush(brush);
    painter.drawRoundedRect(rect, radius, radius);
}

void strokeRounded(QPainter& painter, const QRectF& rect, double radius, double width,
                   const QColor& drawn) {
    const Drawing drawing(painter);
    const double half = width / 2;
    painter.setPen(QPen(drawn, width));
    painter.setBrush(Qt::NoBrush);
    const double middle = std::max(0.0, radius - half);
    painter.drawRoundedRect(rect.adjusted(half, half, -half, -half), middle, middle);
}

void drawFocusRing(QPainter& painter, const QRectF& shape, double radius) {
    constexpr double reach = ringGap + ringWidth;
    const QRectF outer = shape.adjusted(-reach, -reach, reach, reach);
    strokeRounded(painter, outer, radius + reach, ringWidth, color(Role::accent));
}

bool showsFocus(const QStyleOption& option) {
    constexpr QStyle::State wanted = QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    return (option.state & wanted) == wanted;
}

void drawChevron(QPainter& painter, const QPointF& center, double size, Direction direction,
                 const QColor& drawn) {
    const double across = size / 2;
    const double along = size / 4;
    const auto at = [&](double a, double b) {
        switch (direction) {
        case Direction::up:
            return center + QPointF(a, -b);
        case Direction::down:
            return center + QPointF(a, b);
        case Direction::left:
            return center + QPointF(-b, a);
        case Direction::right:
            return center + QPointF(b, a);
        }
        return center;
    };
    drawLine(painter, {at(-across, -along), at(0, along), at(across, -along)}, 1.5, drawn);
}

void drawCheckMark(QPainter& painter, const QRectF& within, const QColor& drawn) {
    const auto at = [&within](double x, double y) {
        return QPointF(within.left() + x * within.width(), within.top() + y * within.height());
    };
    drawLine(painter, {at(0.24, 0.53), at(0.42, 0.71), at(0.76, 0.30)}, within.width() / 9, drawn);
}

void drawPanel(QPainter& painter, const QRectF& rect, double radius) {
    const QRectF shape = snapped(painter, rect);
    fillRounded(painter, shape, radius, color(Role::card));
    strokeRounded(painter, shape, radius, hairline(painter), color(Role::outline));
}

} // namespace glidemap::style
