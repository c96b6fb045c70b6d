#include "ui/theme/symbol.h"

#include "ui/theme/text.h"

#include <QDataStream>
#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPixmapCache>
#include <algorithm>
#include <cmath>
#include <vector>

namespace glidemap {

namespace {

constexpr double gridSize = 16;

QString pathOf(std::string_view name) {
    return QStringLiteral(":/symbols/") + toQt(name);
}

// A precompiled outline. It is stroked with its pen, or filled if the pen has no style.
struct Shape {
    QPainterPath outline;
    QPen pen;
};

std::vector<Shape> shapesOf(std::string_view name) {
    std::vector<Shape> shapes;
    QFile file(pathOf(name));
    if (name.empty() || !file.open(QIODevice::ReadOnly)) {
        return shapes;
    }
    QDataStream stream(&file);
    stream.setVersion(QDataStream::Qt_6_0);
    while (!stream.atEnd()) {
        Shape& shape = shapes.emplace_back();
        stream >> shape.outline >> shape.pen;
    }
    return shapes;
}

void draw(QPainter& painter, const Shape& shape, const QColor& color) {
    if (shape.pen.style() == Qt::NoPen) {
        painter.fillPath(shape.outline, color);
        return;
    }
    QPen pen = shape.pen;
    pen.setColor(color);
    painter.strokePath(shape.outline, pen);
}

void renderSymbol(QPainter& painter, const QRectF& where, std::string_view name,
                  const QColor& color) {
    const std::vector<Shape> shapes = shapesOf(name);
    painter.save();
    painter.setOpacity(painter.opacity() * color.alphaF());
    const QColor ink = QColor::fromRgb(color.rgb());
    if (shapes.empty()) {
        painter.setPen(ink);
        painter.drawRect(where.adjusted(1, 1, -1, -1));
    }
    const double scale = std::min(where.width(), where.height()) / gridSize;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(where.center());
    painter.scale(scale, scale);
    painter.translate(-gridSize / 2, -gridSize / 2);
    for (const Shape& shape : shapes) {
        draw(painter, shape, ink);
    }
    painter.restore();
}

// Returns a cached drawing of the symbol. Stroking its outlines takes many times as long as drawing
// a pixmap, and the rows repeat a few symbols. The size is in device pixels.
QPixmap picture(std::string_view name, const QColor& color, const QSize& pixels) {
    const QString key = QStringLiteral("symbol/%1/%2/%3x%4")
                            .arg(toQt(name), color.name(QColor::HexArgb))
                            .arg(pixels.width())
                            .arg(pixels.height());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap(pixels);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        renderSymbol(painter, QRectF(QPointF(), pixels), name, color);
        painter.end();
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

// Draws the symbol in the theme's current colours, at the requested size and resolution.
class SymbolEngine : public QIconEngine {
public:
    SymbolEngine(std::string_view symbol, Role role, int points)
        : symbol(symbol), role(role), points(points) {}

    QIconEngine* clone() const override { return new SymbolEngine(*this); }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return {QSize(points, points)};
    }

    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return size;
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State /*state*/) override {
        drawSymbol(*painter, rect, symbol, colorFor(mode));
    }

    QPixmap pixmap(const QSize& pixels, QIcon::Mode mode, QIcon::State /*state*/) override {
        return picture(symbol, colorFor(mode), pixels);
    }

private:
    QColor colorFor(QIcon::Mode mode) const {
        const Theme& theme = Theme::shared();
        switch (mode) {
        case QIcon::Disabled:
            return theme.color(Role::tertiary);
        case QIcon::Selected: // on the accent background
            return theme.color(Role::onAccent);
        default:
            return theme.color(role);
        }
    }

    std::string symbol;
    Role role;
    int points;
};

} // namespace

bool symbolExists(std::string_view name) {
    return !name.empty() && QFile::exists(pathOf(name));
}

void drawSymbol(QPainter& painter, const QRectF& where, std::string_view name,
                const QColor& color) {
    const QTransform transform = painter.deviceTransform();
    if (transform.type() > QTransform::TxScale) {
        renderSymbol(painter, where, name, color);
        return;
    }
    const QRectF device = transform.mapRect(where);
    const QSize pixels(std::max(1, qRound(device.width())), std::max(1, qRound(device.height())));
    const QPointF corner(std::round(device.left()), std::round(device.top()));
    const QRectF target = transform.inverted().mapRect(QRectF(corner, pixels));
    painter.drawPixmap(target, picture(name, color, pixels), QRectF(QPointF(), pixels));
}

QPixmap symbolPixmap(std::string_view name, const QColor& color, int points, double pixelRatio) {
    const int pixels = qRound(points * pixelRatio);
    QPixmap pixmap = picture(name, color, QSize(pixels, pixels));
    pixmap.setDevicePixelRatio(pixelRatio);
    return pixmap;
}

QIcon symbolIcon(std::string_view name, Role role, int points) {
    return QIcon(new SymbolEngine(name, role, points));
}

} // namespace glidemap
