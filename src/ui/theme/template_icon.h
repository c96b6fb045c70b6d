// A symbol as an icon for a status bar, whose colour nobody tells.
//
// A bar that draws itself is given the name of the installed icon, and colours that as it likes.
// Where it is not installed, or the bar only gives a place to draw in, it is drawn here: in the
// appearance's colour, with an edge in the opposite one that keeps it legible on any ground.
//
// Units:   points; the strength is how opaque it is drawn, 1 for entirely.
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <QIcon>
#include <string_view>

namespace glidemap {

// By its name in the desktop's icon theme, or drawn where that has none.
QIcon themedTemplateIcon(const char* themeName, std::string_view symbol, double strength = 1);

QIcon drawnTemplateIcon(std::string_view symbol, double strength = 1);

// Without the edge: for a bar that takes the shape alone, and colours that itself.
QIcon plainTemplateIcon(std::string_view symbol, double strength = 1);

} // namespace glidemap
