// Pictures of windows as on the screen: at its scale, and with the windows above them in place.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <QImage>
#include <QList>
#include <QSize>

class QWidget;

namespace glidemap::screenshots {

// An empty picture of this size in points.
QImage canvas(const QSize& points);

// Processes all pending events.
void settle();

QImage photograph(QWidget& window);

// Windows from bottom to top.
QImage photographTogether(const QList<QWidget*>& windows);

// The window with all other open windows above it, the last opened on top.
QImage photographWithAllAbove(QWidget& window);

// Whether the picture has one colour, or almost.
bool isBlank(const QImage& picture);

} // namespace glidemap::screenshots
