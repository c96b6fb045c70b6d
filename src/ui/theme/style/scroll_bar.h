// Scroll bars: a thin rounded handle without a groove. The handle grows under the pointer.
//
// Thread:  the main thread.
#pragma once

#include <QRect>
#include <QStyle>

class QPainter;
class QStyleOptionSlider;

namespace glidemap::style {

constexpr int scrollBarExtent = 12;
constexpr int scrollBarMinHandle = 28;

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle);

// Scroll bars have no arrow buttons, so the groove takes the entire length.
QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part);

} // namespace glidemap::style
