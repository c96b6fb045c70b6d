// Draws a widget and its children at half opacity, to show that they are switched off. The widget
// still accepts input.
//
// Thread:  the main thread.
#pragma once

class QWidget;

namespace glidemap {

void setDimmed(QWidget* widget, bool isDimmed);
bool isDimmed(const QWidget* widget);

} // namespace glidemap
