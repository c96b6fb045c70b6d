// Base class of icons that are drawn separately for each requested size.
//
// Thread:  the main thread.
// Owner:   the icon.
// Errors:  none.
#pragma once

#include <QIconEngine>
#include <span>

namespace glidemap {

// Subclasses implement pixmap().
class PixmapIconEngine : public QIconEngine {
public:
    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) final;

protected:
    static QList<QSize> squares(std::span<const int> sides);
};

} // namespace glidemap
