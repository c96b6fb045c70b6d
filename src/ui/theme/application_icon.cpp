#include "ui/theme/application_icon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace glidemap {

namespace {

// Below this many pixels the details of the large drawing are a blur.
constexpr int smallestLargeSize = 32;

QPixmap drawn(const QString& file, int pixels) {
    QPixmap pixmap(pixels, pixels);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    QSvgRenderer(file).render(&painter, QRectF(0, 0, pixels, pixels));
    return pixmap;
}

} // namespace

QIcon applicationIcon() {
    const QString large = QStringLiteral(":/icons/org.glidemap.Glidemap.svg");
    const QString small = QStringLiteral(":/icons/org.glidemap.Glidemap-small.svg");
    QIcon icon;
    for (const int pixels : {16, 22, 24, 32, 48, 64, 96, 128, 256}) {
        icon.addPixmap(drawn(pixels < smallestLargeSize ? small : large, pixels));
    }
    return icon;
}

} // namespace glidemap
