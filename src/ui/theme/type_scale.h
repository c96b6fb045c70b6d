// The sizes and weights of the interface's texts, made from the desktop's own font.
//
// Units:   points.
// Thread:  the main thread.
// Errors:  none. Where the desktop names no font of its own, one that is made for screens is taken
// if it is installed.
#pragma once

#include "ui/theme/theme.h"

#include <QFont>

namespace glidemap {

// The desktop's family, before the one that draws Chinese as it is written in China.
QFont interfaceFont(const QFont& desktop);

// `base` is an interface font. Sizes grow with its size where the user has set a larger one than
// usual; they never shrink below what is comfortable.
QFont scaledFont(const QFont& base, TextStyle style);

} // namespace glidemap
