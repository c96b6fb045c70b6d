// The soft shadow behind a raised card.
//
// Units:   points.
// Thread:  the main thread.
#pragma once

#include <QRectF>

class QPainter;

namespace glidemap::style {

// The maximum distance from the card to the edge of its shadow.
constexpr int shadowReach = 22;

// Draws the shadow around and below the card. The caller draws the card afterwards.
void drawShadow(QPainter& painter, const QRectF& card, double radius);

} // namespace glidemap::style
