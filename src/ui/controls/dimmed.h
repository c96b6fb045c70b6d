// Draws a widget and its children at half opacity: it is switched off, but can still be used.
//
// Thread:  the main thread.
#pragma once

class QWidget;

namespace glidemap {

void setDimmed(QWidget* widget, bool isDimmed);
bool isDimmed(const QWidget* widget);

} // namespace glidemap
