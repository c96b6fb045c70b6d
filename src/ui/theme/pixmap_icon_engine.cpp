#include "ui/theme/pixmap_icon_engine.h"

#include <QPainter>

namespace glidemap {

void PixmapIconEngine::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
                             QIcon::State state) {
    const double ratio = painter->device()->devicePixelRatioF();
    const QPixmap picture = pixmap((QSizeF(rect.size()) * ratio).toSize(), mode, state);
    QRectF target(QPointF(), QSizeF(picture.size()) / ratio);
    target.moveCenter(QRectF(rect).center());
    painter->drawPixmap(target, picture, picture.rect());
}

QList<QSize> PixmapIconEngine::squares(std::span<const int> sides) {
    QList<QSize> sizes;
    for (const int side : sides) {
        sizes.append(QSize(side, side));
    }
    return sizes;
}

} // namespace glidemap
