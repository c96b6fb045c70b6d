// Draws a widget and all that it holds at half opacity: what is switched off, yet can be used.
//
// Thread:  the main thread.
#pragma once

class QWidget;

namespace glidemap {

void setDimmed(QWidget* widget, bool isDimmed);
bool isDimmed(const QWidget* widget);

} // namespace glidemap
