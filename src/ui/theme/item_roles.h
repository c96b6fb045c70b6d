// What the entries of lists and pickers can say about themselves beyond Qt's own roles.
//
// Thread:  any.
#pragma once

#include <Qt>

namespace glidemap {

// True for a heading among the entries: it is drawn as one, and such an entry must not be selectable.
constexpr int headingRole = Qt::UserRole + 0x4700;

} // namespace glidemap
