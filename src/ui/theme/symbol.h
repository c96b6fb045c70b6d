// The symbols of the interface, by the names of the system's symbol set, in the colour of a role.
//
// Each name that the gesture catalogue or the interface uses has our own drawing with the same
// meaning. The drawings are vectors, and therefore sharp at any size.
//
// Units:   points.
// Thread:  the main thread.
// Errors:  an unknown name is drawn as an empty square, so that it is noticed; a test checks all
//          names.
#pragma once

#include "ui/theme/theme.h"

#include <QIcon>
#include <QPixmap>
#include <string_view>

class QPainter;
class QRectF;

namespace glidemap {

bool symbolExists(std::string_view name);

// Fills the rectangle as far as the symbol's shape allows, centred.
void drawSymbol(QPainter& painter, const QRectF& where, std::string_view name, const QColor& color);

QPixmap symbolPixmap(std::string_view name, const QColor& color, int points, double pixelRatio);

// Has the role's colour at the time of drawing, dimmed if the icon is disabled, and adapted to the
// accent background if it is selected.
QIcon symbolIcon(std::string_view name, Role role, int points = 16);

} // namespace glidemap
