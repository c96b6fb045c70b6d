// The sizes and weights of the interface's texts, based on the desktop's font.
//
// Units:   points.
// Thread:  the main thread.
// Errors:  none. If the desktop does not specify a font, an installed font that is designed for
//          screens is used.
#pragma once

#include "ui/theme/theme.h"

#include <QFont>

namespace glidemap {

// Returns the desktop's font with fallback families, the last of which has the Chinese letterforms
// of mainland China.
QFont interfaceFont(const QFont& desktop);

// `base` must come from interfaceFont(). The returned size grows with a larger base font, but never
// shrinks below a comfortable size.
QFont scaledFont(const QFont& base, TextStyle style);

} // namespace glidemap
