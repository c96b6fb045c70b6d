// The modifiers of a key press as a shortcut stores them: Shift, Control, Option and Command, and no
// other.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <Qt>
#include <cstdint>

namespace glidemap {

// Where Qt's names are those of the keys: on a Mac it says Control for Command.
std::uint64_t modifierMask(Qt::KeyboardModifiers modifiers);

} // namespace glidemap
