// A symbol as a status bar icon, for a bar of unknown colour.
//
// A bar that draws its items gets the name of the installed icon, and colours it. If the icon is
// not installed, or the bar only embeds the item, the icon is drawn here. It has the appearance's
// colour and an edge in the opposite colour, to be legible on any background.
//
// Units:   points; the strength is the opacity, 0..1.
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <QIcon>
#include <string_view>

namespace glidemap {

// The icon of this name in the desktop's theme, or else a drawn one.
QIcon themedTemplateIcon(const char* themeName, std::string_view symbol, double strength = 1);

QIcon drawnTemplateIcon(std::string_view symbol, double strength = 1);

// Without the edge: for a bar that uses only the shape and colours it itself.
QIcon plainTemplateIcon(std::string_view symbol, double strength = 1);

} // namespace glidemap
