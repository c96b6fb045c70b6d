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

} // namespace glidemap::style
