// The colours of both appearances, and the QPalette made of them.
//
// Texts have a contrast of at least 4.5:1 on their backgrounds, to be legible in sunlight and with
// low vision. Disabled hints and drawings have at least 3:1.
//
// Thread:  any.
#pragma once

#include "ui/theme/theme.h"

#include <QPalette>

namespace glidemap {

QColor colorOf(Role role, ColorScheme scheme);

// The same hue, not darkened for text: a thin tint of a text colour would look muddy.
QColor vividColorOf(Role role, ColorScheme scheme);

// Leaves QPalette::AlternateBase to the desktop: no control here uses it, and it shows whether the
// desktop is dark.
QPalette paletteOf(ColorScheme scheme);

// Returns the appearance that the palette's desktop colours imply.
ColorScheme desktopSchemeOf(const QPalette& palette);

} // namespace glidemap
