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

// The ground of a borderless button: nothing at rest.
void drawToolButtonGround(QPainter& painter, const QStyleOption& option);

// Draws the icon of a button that has nothing else, as sharp as the screen is; else does nothing.
bool drawToolButtonIcon(QPainter& painter, const QStyleOptionToolButton& option);

} // namespace glidemap::style
