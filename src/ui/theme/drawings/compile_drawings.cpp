// glidemap-compile-drawings: a build tool that is not installed. It converts our SVG drawings to a
// format that the program can draw without an XML parser or the SVG library:
//
//   shapes SVG OUTPUT             the shapes of a symbol, as ShapeRecorder writes them
//   pixels SVG SIZE OUTPUT        a picture of SIZE by SIZE, row by row, in the memory layout of
//                                 QImage::Format_ARGB32_Premultiplied
//
// The SVG renderer itself paints the shapes, so the program's symbols look exactly like the
// drawings.
#include "ui/theme/drawings/shape_recorder.h"

#include <QDataStream>
#include <QFile>
#include <QImage>
#include <QPaintDevice>
#include <QPainter>
#include <QSvgRenderer>
#include <cstdlib>
#include <iostream>

namespace {

constexpr double gridSize = 16; // the grid on which our symbols are drawn
constexpr int stream = QDataStream::Qt_6_0;

[[noreturn]] void fail(const QString& what) {
    std::cerr << "glidemap-compile-drawings: " << what.toStdString() << std::endl;
    std::exit(EXIT_FAILURE); // NOLINT(concurrency-mt-unsafe): the only thread
}

class RecordingDevice : public QPaintDevice {
public:
    explicit RecordingDevice(QDataStream& output)
        : recorder(output, [](const char* fault) { fail(fault); }) {}
    QPaintEngine* paintEngine() const override { return &recorder; }

protected:
    int metric(PaintDeviceMetric metric) const override {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return static_cast<int>(gridSize);
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        default:
            return 1;
        }
    }

private:
    mutable glidemap::ShapeRecorder recorder;
};

QByteArray contentsOf(const QString& name) {
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly)) {
        fail("cannot read " + name);
    }
    return file.readAll();
}

void write(const QString& name, const QByteArray& contents) {
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(contents) != contents.size()) {
        fail("cannot write " + name);
    }
}

QByteArray shapesIn(const QString& drawing) {
    QSvgRenderer renderer(contentsOf(drawing).replace("currentColor", "#000000"));
    if (!renderer.isValid() || renderer.viewBoxF() != QRectF(0, 0, gridSize, gridSize)) {
        fail(drawing + " is not a drawing on our grid");
    }
    QByteArray shapes;
    QDataStream out(&shapes, QIODevice::WriteOnly);
    out.setVersion(stream);
    RecordingDevice device(out);
    QPainter painter(&device);
    renderer.render(&painter, QRectF(0, 0, gridSize, gridSize));
    painter.end();
    return shapes;
}

QByteArray pixelsOf(const QString& drawing, int size) {
    QSvgRenderer renderer(drawing);
    if (!renderer.isValid() || size <= 0) {
        fail(drawing + " cannot be drawn");
    }
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(0, 0, size, size));
    painter.end();
    return {reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes()};
}

} // namespace

int main(int count, char* arguments[]) {
    const QStringList words(arguments + 1, arguments + count);
    if (words.size() == 3 && words[0] == "shapes") {
        write(words[2], shapesIn(words[1]));
    } else if (words.size() == 4 && words[0] == "pixels") {
        write(words[3], pixelsOf(words[1], words[2].toInt()));
    } else {
        fail("shapes SVG OUTPUT, or pixels SVG SIZE OUTPUT");
    }
    return EXIT_SUCCESS;
}
