// The symbols of the interface. They have the names of the corresponding symbols of macOS (SF
// Symbols), and each is drawn in a single colour.
//
// Each name that the gesture catalogue or the interface uses has a drawing of our own, with the
// same meaning. The drawings are vectors, and therefore sharp at any size.
//
// Units:   points.
// Thread:  the main thread.
// Errors:  an unknown name is drawn as an empty square, so that the mistake is visible; a test
//          checks all names.
#pragma once

#include "ui/theme/theme.h"

#include <QIcon>
#include <QPixmap>
#include <string_view>

class QPainter;
class QRectF;

namespace glidemap {

bool symbolExists(std::string_view name);

// Draws the symbol in the largest square that fits into the rectangle, centred.
void drawSymbol(QPainter& painter, const QRectF& where, std::string_view name, const QColor& color);

QPixmap symbolPixmap(std::string_view name, const QColor& color, int points, double pixelRatio);

// Returns an icon in the role's colour, which is looked up at the time of drawing. A disabled icon
// is dimmed; a selected icon has the colour for text on the accent background.
QIcon symbolIcon(std::string_view name, Role role, int points = 16);

} // namespace glidemap
