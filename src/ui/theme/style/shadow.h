// The soft shadow behind a raised card.
//
// Units:   points.
// Thread:  the main thread.
#pragma once

#include <QRectF>

class QPainter;

namespace glidemap::style {

// The maximum reach of the shadow around the card.
constexpr int shadowReach = 22;

// Draws around and below the card. Draw the card afterwards.
void drawShadow(QPainter& painter, const QRectF& card, double radius);

} // namespace glidemap::style
