// The colours of the light and the dark appearance, and the QPalettes created from them.
//
// Texts have a contrast of at least 4.5:1 with their background, so that they are legible in
// sunlight and for users with low vision. Drawings and disabled texts have at least 3:1.
//
// Thread:  any.
#pragma once

#include "ui/theme/theme.h"

#include <QPalette>

namespace glidemap {

QColor colorOf(Role role, ColorScheme scheme);

// Returns the role's colour without the adjustment for the contrast of texts. Use it for
// translucent backgrounds, which would look muddy in the colour for texts.
QColor vividColorOf(Role role, ColorScheme scheme);

// Does not set QPalette::AlternateBase, which therefore keeps the desktop's colour. None of our
// controls uses this colour, and desktopSchemeOf() determines from it whether the desktop is dark.
QPalette paletteOf(ColorScheme scheme);

// Returns the appearance that the desktop's colours in this palette imply.
ColorScheme desktopSchemeOf(const QPalette& palette);

} // namespace glidemap
