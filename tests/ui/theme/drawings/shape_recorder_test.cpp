// The compiled symbols must not depend on the version of the SVG library that compiled them.
#include "ui/theme/drawings/shape_recorder.h"

#include <gmock/gmock.h>

#include <QPaintDevice>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class Device : public QPaintDevice {
public:
    explicit Device(QPaintEngine& recorder) : engine(recorder) {}
    QPaintEngine* paintEngine() const override { return &engine; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        if (metric == PdmDevicePixelRatioScaled) {
            return static_cast<int>(devicePixelRatioFScale());
        }
        return metric == PdmWidth || metric == PdmHeight ? 16 : 1;
    }

private:
    QPaintEngine& engine;
};

class ShapeRecorderTest : public testing::Test {
protected:
    // Returns the output as lines: how each shape is painted, and with which pen.
    std::vector<std::string> recorded(const std::function<void(QPainter&)>& paint) {
        QByteArray bytes;
        QDataStream out(&bytes, QIODevice::WriteOnly);
        ShapeRecorder recorder(out, [this](const char* fault) { faults.emplace_back(fault); });
        Device device(recorder);
        QPainter painter(&device);
        paint(painter);
        painter.end();
        std::vector<std::string> lines;
        QDataStream in(bytes);
        while (!in.atEnd()) {
            QPainterPath path;
            QPen drawn;
            in >> path >> drawn;
            EXPECT_EQ(path, shape);
            lines.push_back(drawn.style() == Qt::NoPen
                                ? "filled"
                                : "drawn " + std::to_string(drawn.widthF()).substr(0, 3));
        }
        return lines;
    }

    static QPainterPath square() {
        QPainterPath path;
        path.addRect(2, 2, 6, 6);
        return path;
    }

    const QPainterPath shape = square();
    const QPen pen{Qt::black, 1.5};
    std::vector<std::string> faults;
};

TEST_F(ShapeRecorderTest, FillAndStrokeInOneCallAreRecordedAsTwoShapes) {
    const auto inOne = recorded([this](QPainter& painter) {
        painter.setPen(pen);
        painter.setBrush(Qt::black);
        painter.drawPath(shape);
    });
    const auto inTwo = recorded([this](QPainter& painter) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawPath(shape);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(shape);
    });
    EXPECT_THAT(inOne, ElementsAre("filled", "drawn 1.5"));
    EXPECT_EQ(inOne, inTwo);
    EXPECT_THAT(faults, IsEmpty());
}

TEST_F(ShapeRecorderTest, ShapesWithNeitherFillNorStrokeAreOmitted) {
    EXPECT_THAT(recorded([this](QPainter& painter) {
                    painter.setPen(Qt::NoPen);
                    painter.setBrush(Qt::NoBrush);
                    painter.drawPath(shape);
                }),
                IsEmpty());
    EXPECT_THAT(faults, IsEmpty());
}

TEST_F(ShapeRecorderTest, ReportsUnsupportedOperationsAsFaults) {
    recorded([](QPainter& painter) { painter.drawPixmap(0, 0, QPixmap(2, 2)); });
    EXPECT_THAT(faults, ElementsAre("a symbol contains an image"));
    faults.clear();
    recorded([](QPainter& painter) {
        const QPoint corners[] = {{0, 0}, {4, 0}, {0, 4}};
        painter.drawPolygon(corners, 3);
    });
    EXPECT_THAT(faults, ElementsAre("a symbol contains an element that is not a path"));
    faults.clear();
    recorded([](QPainter& painter) {
        painter.scale(2, 2);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(square());
    });
    EXPECT_THAT(faults, ElementsAre("a symbol is scaled, but its pen is not"));
}

} // namespace
} // namespace glidemap
