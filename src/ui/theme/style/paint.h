// Painting functions shared by all controls: pixel-aligned edges at any scale, rounded backgrounds,
// chevrons, and the focus ring.
//
// Units:   points.
// Thread:  the main thread.
#pragma once

#include "ui/theme/theme.h"

#include <QPainter>
#include <QRectF>

class QStyleOption;

namespace glidemap::style {

// The margin between a control's widget and its visible shape, where the focus ring is drawn.
// Layouts align the visible shapes.
constexpr int ringMargin = 3;

constexpr double controlRadius = 6;
constexpr int controlHeight = 28;

QColor color(Role role);
QColor color(Role role, double opacity);

// Returns the width of a sharp thin line on this screen: the largest whole number of pixels that is
// at most one point, and at least one pixel.
double hairline(const QPainter& painter);

// Returns the rectangle with its edges aligned to the screen's pixels.
QRectF snapped(const QPainter& painter, const QRectF& rect);

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& brush);

// Draws the stroke inside the rectangle.
void strokeRounded(QPainter& painter, const QRectF& rect, double radius, double width,
                   const QColor& drawn);

// Draws the ring outside the shape.
void drawFocusRing(QPainter& painter, const QRectF& shape, double radius);

// Whether to draw a focus ring: the control has the focus, and the user moved the focus with the
// keyboard.
bool showsFocus(const QStyleOption& option);

enum class Direction { up, down, left, right };
void drawChevron(QPainter& painter, const QPointF& center, double size, Direction direction,
                 const QColor& drawn);

void drawCheckMark(QPainter& painter, const QRectF& within, const QColor& drawn);

// Draws a raised card with an edge: the background of menus, combo box lists and tooltips.
void drawPanel(QPainter& painter, const QRectF& rect, double radius);

} // namespace glidemap::style
