#include "ui/theme/symbol.h"

#include "ui/theme/text.h"

#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

namespace glidemap {

namespace {

QString pathOf(std::string_view name) {
    return QStringLiteral(":/symbols/") + toQt(name) + QStringLiteral(".svg");
}

QByteArray drawingOf(std::string_view name, const QColor& color) {
    QFile file(pathOf(name));
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    return file.readAll().replace("currentColor", color.name(QColor::HexRgb).toLatin1());
}

} // namespace

bool symbolExists(std::string_view name) {
    return QFile::exists(pathOf(name));
}

void drawSymbol(QPainter& painter, const QRectF& where, std::string_view name,
                const QColor& color) {
    painter.save();
    painter.setOpacity(painter.opacity() * color.alphaF());
    QSvgRenderer renderer(drawingOf(name, color));
    if (renderer.isValid()) {
        renderer.setAspectRatioMode(Qt::KeepAspectRatio);
        renderer.render(&painter, where);
    } else {
        painter.setPen(color);
        painter.drawRect(where.adjusted(1, 1, -1, -1));
    }
    painter.restore();
}

QPixmap symbolPixmap(std::string_view name, const QColor& color, int points, double pixelRatio) {
    const int pixels = qRound(points * pixelRatio);
    QPixmap pixmap(pixels, pixels);
    pixmap.setDevicePixelRatio(pixelRatio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    drawSymbol(painter, QRectF(0, 0, points, points), name, color);
    return pixmap;
}

QIcon symbolIcon(std::string_view name, Role role, int points) {
    QIcon icon;
    const Theme& theme = Theme::shared();
    for (const double ratio : {1.0, 1.5, 2.0}) {
        icon.addPixmap(symbolPixmap(name, theme.color(role), points, ratio));
        icon.addPixmap(symbolPixmap(name, theme.color(Role::tertiary), points, ratio),
                       QIcon::Disabled);
    }
    return icon;
}

} // namespace glidemap
