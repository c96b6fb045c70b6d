// Draws a widget and its children at half opacity, which marks it as switched off. The widget stays
// usable.
//
// Thread:  the main thread.
#pragma once

class QWidget;

namespace glidemap {

void setDimmed(QWidget* widget, bool isDimmed);
bool isDimmed(const QWidget* widget);

} // namespace glidemap
