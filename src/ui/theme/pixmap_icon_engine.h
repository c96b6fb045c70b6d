// An icon that is made anew for each size that is asked for.
//
// Thread:  the main thread.
// Owner:   the icon.
// Errors:  none.
#pragma once

#include <QIconEngine>
#include <span>

namespace glidemap {

// pixmap() is whoever draws the icon's.
class PixmapIconEngine : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) final;

protected:
    static QList<QSize> squares(std::span<const int> sides);
};

} // namespace glidemap
