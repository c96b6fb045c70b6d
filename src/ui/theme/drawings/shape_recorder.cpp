#include "ui/theme/drawings/shape_recorder.h"

#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <cmath>
#include <utility>

namespace glidemap {

ShapeRecorder::ShapeRecorder(QDataStream& output, std::function<void(const char* fault)> onFault)
    : QPaintEngine(AllFeatures), out(output), fault(std::move(onFault)) {}

bool ShapeRecorder::begin(QPaintDevice* /*device*/) {
    return true;
}

bool ShapeRecorder::end() {
    return true;
}

void ShapeRecorder::updateState(const QPaintEngineState& /*state*/) {}

QPaintEngine::Type ShapeRecorder::type() const {
    return User;
}

void ShapeRecorder::drawPath(const QPainterPath& path) {
    const QTransform placed = painter()->combinedTransform();
    if (std::abs(std::abs(placed.determinant()) - 1) > 1e-9) {
        fault("a symbol is scaled, but its pen is not");
    }
    // SVG paints the fill before the stroke.
    if (painter()->brush().style() != Qt::NoBrush) {
        out << placed.map(path) << QPen(Qt::NoPen);
    }
    if (painter()->pen().style() != Qt::NoPen) {
        out << placed.map(path) << painter()->pen();
    }
}

void ShapeRecorder::drawPolygon(const QPointF* /*points*/, int /*count*/,
                                PolygonDrawMode /*mode*/) {
    fault("a symbol contains an element that is not a path");
}

void ShapeRecorder::drawPixmap(const QRectF& /*where*/, const QPixmap& /*picture*/,
                               const QRectF& /*part*/) {
    fault("a symbol contains an image");
}

} // namespace glidemap
