// Pictures of windows as a person sees them: sharp on the screen there is, and those that lie above
// others at their place above them.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <QImage>
#include <QList>
#include <QSize>

class QWidget;

namespace glidemap::screenshots {

// An empty picture of this many points.
QImage canvas(const QSize& points);

// Lets everything happen that has been asked for.
void settle();

QImage photograph(QWidget& window);

// The lowest first.
QImage photographTogether(const QList<QWidget*>& windows);

// The window with every other one that is open, the last opened on top.
QImage photographWithAllAbove(QWidget& window);

// Whether there is nothing to see: one colour, or next to nothing beside it.
bool isBlank(const QImage& picture);

} // namespace glidemap::screenshots
