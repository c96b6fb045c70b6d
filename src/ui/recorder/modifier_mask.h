// The modifiers of a key press as a shortcut stores them: Shift, Control, Option and Command, and no
// other.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <Qt>
#include <cstdint>

namespace glidemap {

// Qt's names are those of the keys, except where the program's home is a Mac: there Qt says Control
// for Command, so that Control+C copies everywhere.
enum class ModifierNames { plain, swapped };

std::uint64_t modifierMask(Qt::KeyboardModifiers modifiers, ModifierNames names);

// Those of the window system that the program runs on.
ModifierNames modifierNames();

} // namespace glidemap
