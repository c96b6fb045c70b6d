// The sizes and weights of the interface's texts, based on the desktop's font.
//
// Units:   points.
// Thread:  the main thread.
// Errors:  none. If the desktop names no font, an installed font that is designed for screens is
//          used.
#pragma once

#include "ui/theme/theme.h"

#include <QFont>

namespace glidemap {

// The desktop's family, followed by a font with the Chinese letterforms of mainland China.
QFont interfaceFont(const QFont& desktop);

// `base` is an interface font. Sizes grow with its size if the user has set a larger one; they
// never shrink below a comfortable size.
QFont scaledFont(const QFont& base, TextStyle style);

} // namespace glidemap
