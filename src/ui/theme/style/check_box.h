// Check boxes and radio buttons.
//
// Thread:  the main thread.
#pragma once

#include <QRect>
#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionButton;

namespace glidemap::style {

constexpr double boxRadius = 4.5;

enum class Mark { check, radio };

// Draws only the box or circle, without a label.
void drawIndicator(QPainter& painter, const QStyleOption& option, const QRectF& place, Mark mark);

void drawMarkedButton(QPainter& painter, const QStyleOptionButton& option, Mark mark);
QRect indicatorRect(const QStyleOption& option);
QRect indicatorLabelRect(const QStyleOption& option);
QSize markedButtonSize(const QStyleOptionButton& option);

} // namespace glidemap::style
