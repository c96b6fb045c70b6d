// The soft shadow that lifts a card off what lies beneath it.
//
// Units:   points.
// Thread:  the main thread.
#pragma once

#include <QRectF>

class QPainter;

namespace glidemap::style {

// How far the shadow reaches around the card, at most.
constexpr int shadowReach = 22;

// Around and beneath the card, which is to be drawn upon it.
void drawShadow(QPainter& painter, const QRectF& card, double radius);

} // namespace glidemap::style
