// The colours of the two appearances, and the palette of Qt's that is made of them.
//
// Texts keep a contrast of at least 4.5 to 1 on the grounds that they stand on, so that they can be
// read in sunlight and by tired eyes; hints of what is off, and drawings, keep at least 3 to 1.
//
// Thread:  any.
#pragma once

#include "ui/theme/theme.h"

#include <QPalette>

namespace glidemap {

QColor colorOf(Role role, ColorScheme scheme);

// The same hue without a thought for texts: as a thin tint of a ground, a colour dark enough to be
// read would look muddy.
QColor vividColorOf(Role role, ColorScheme scheme);

// Leaves QPalette::AlternateBase to the desktop: nothing here is drawn with it, and it goes on
// telling whether the desktop is dark.
QPalette paletteOf(ColorScheme scheme);

// What the desktop's own part of the palette amounts to.
ColorScheme desktopSchemeOf(const QPalette& palette);

} // namespace glidemap
