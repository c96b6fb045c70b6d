// Takes pictures of windows as they appear on the screen: at the screen's scale, and partly covered
// by the windows above them.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <QImage>
#include <QList>
#include <QSize>

class QWidget;

namespace glidemap::test {

// Returns an empty picture of this size in points.
QImage canvas(const QSize& points);

// Processes all pending events.
void settle();

QImage photograph(QWidget& window);

// Returns one picture of the windows, which overlap as on the screen. The last one is on top.
QImage photographTogether(const QList<QWidget*>& windows);

// Returns a picture of the window with all other open windows above it, and open lists on top.
QImage photographWithAllAbove(QWidget& window);

// Whether all pixels of the picture, or almost all, have the same colour.
bool isBlank(const QImage& picture);

} // namespace glidemap::test
