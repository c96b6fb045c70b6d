// The strokes that all controls are drawn with: edges that fall on whole pixels of the screen, at any
// scale, rounded grounds, chevrons and the ring of the keyboard's focus.
//
// Units:   points.
// Thread:  the main thread.
#pragma once

#include "ui/theme/theme.h"

#include <QPainter>
#include <QRectF>

class QStyleOption;

namespace glidemap::style {

// How far a control's widget reaches beyond what is drawn of it at rest. The focus ring lies there;
// layouts align the controls by what is drawn.
constexpr int ringMargin = 3;

constexpr double controlRadius = 6;
constexpr int controlHeight = 28;

QColor color(Role role);
QColor color(Role role, double opacity);

// The thinnest line that this screen draws clearly: a whole number of its pixels, about one point.
double hairline(const QPainter& painter);

// The rectangle with its edges on the screen's pixels.
QRectF snapped(const QPainter& painter, const QRectF& rect);

void fillRounded(QPainter& painter, const QRectF& rect, double radius, const QBrush& brush);

// The stroke lies within the rectangle.
void strokeRounded(QPainter& painter, const QRectF& rect, double radius, double width,
                   const QColor& drawn);

// Around the shape, outside of it.
void drawFocusRing(QPainter& painter, const QRectF& shape, double radius);

// Whether the control has the focus and the user moves it with the keyboard.
bool showsFocus(const QStyleOption& option);

enum class Direction { up, down, left, right };
void drawChevron(QPainter& painter, const QPointF& center, double size, Direction direction,
                 const QColor& drawn);

void drawCheckMark(QPainter& painter, const QRectF& within, const QColor& drawn);

// A raised card with an edge: what menus, lists of pickers and help texts lie on.
void drawPanel(QPainter& painter, const QRectF& rect, double radius);

} // namespace glidemap::style
