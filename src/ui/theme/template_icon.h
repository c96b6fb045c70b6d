// A symbol as an icon for a status bar whose colour is unknown.
//
// A bar that draws its items itself gets the name of the installed icon, and colours the icon. If
// the icon is not installed, or if the bar only embeds the item, the icon is drawn here, in the
// colour of the current appearance. An edge in the opposite colour makes it legible on any
// background.
//
// Units:   points; the strength is the opacity, 0..1.
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <QIcon>
#include <string_view>

namespace glidemap {

// Returns the icon with this name from the desktop's theme, or a drawn icon if it is not installed.
QIcon themedTemplateIcon(const char* themeName, std::string_view symbol, double strength = 1);

QIcon drawnTemplateIcon(std::string_view symbol, double strength = 1);

// Returns an icon without an edge, for a bar that uses only the shape and colours it itself.
QIcon plainTemplateIcon(std::string_view symbol, double strength = 1);

} // namespace glidemap
