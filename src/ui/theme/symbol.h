// The icons of the interface, by the names of the system's symbol set, in the colour of their role.
//
// Every name that the catalogue of gestures or the interface uses has a drawing of ours of the same
// meaning. They are vectors, so they are sharp at any size and on any screen.
//
// Units:   points.
// Thread:  the main thread.
// Errors:  an unknown name is drawn as an empty square, so that it is seen, and a test looks for it.
#pragma once

#include "ui/theme/theme.h"

#include <QIcon>
#include <QPixmap>
#include <string_view>

class QPainter;
class QRectF;

namespace glidemap {

bool symbolExists(std::string_view name);

// Fills as much of the rectangle as its shape allows, centred.
void drawSymbol(QPainter& painter, const QRectF& where, std::string_view name, const QColor& color);

QPixmap symbolPixmap(std::string_view name, const QColor& color, int points, double pixelRatio);

// Drawn in the colour that the role has at that moment, dimmed where the icon is disabled
// and for the accent ground where it is selected.
QIcon symbolIcon(std::string_view name, Role role, int points = 16);

} // namespace glidemap
