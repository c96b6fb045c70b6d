// Text fields, and buttons without a border.
//
// Thread:  the main thread.
#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionFrame;
class QStyleOptionToolButton;
class QWidget;

namespace glidemap::style {

constexpr int fieldPadding = 6;

void drawLineEdit(QPainter& painter, const QStyleOptionFrame& option);

// Draws the background of a borderless button. It is transparent unless the button is hovered,
// pressed or checked.
void drawToolButtonGround(QPainter& painter, const QStyleOption& option);

// Draws the icon of an icon-only button at the screen's resolution; returns false for other
// buttons.
bool drawToolButtonIcon(QPainter& painter, const QStyleOptionToolButton& option);

} // namespace glidemap::style
