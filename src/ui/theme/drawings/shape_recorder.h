// A paint engine that records the painted shapes in order, each with its outline and its pen. A
// shape without a pen is a filled shape.
//
// A shape with both fill and stroke is recorded as two shapes, because some versions of the SVG
// library paint both in one call and others in two.
//
// Units:   those of the painted device; no shape may be scaled, because its pen would not be
//          scaled.
// Thread:  any thread that may use QPainter.
// Owner:   the paint device that returns it.
// Errors:  calls onFault for a painting operation that cannot be recorded; the result is then
//          incomplete.
#pragma once

#include <QDataStream>
#include <QPaintEngine>
#include <functional>

namespace glidemap {

class ShapeRecorder : public QPaintEngine {
public:
    ShapeRecorder(QDataStream& output, std::function<void(const char* fault)> onFault);

    bool begin(QPaintDevice* device) override;
    bool end() override;
    void updateState(const QPaintEngineState& state) override;
    Type type() const override;
    void drawPath(const QPainterPath& path) override;
    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override;
    void drawPixmap(const QRectF& where, const QPixmap& picture, const QRectF& part) override;

private:
    QDataStream& out;
    std::function<void(const char*)> fault;
};

} // namespace glidemap
