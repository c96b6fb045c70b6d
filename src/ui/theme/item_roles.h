// Additional item data roles for entries of lists and combo boxes.
//
// Thread:  any.
#pragma once

#include <Qt>

namespace glidemap {

// True for an entry that is drawn as a heading. The entry must not be selectable.
constexpr int headingRole = Qt::UserRole + 0x4700;

} // namespace glidemap
