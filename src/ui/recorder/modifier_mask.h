// Converts Qt modifiers to the modifiers of a stored shortcut: Shift, Control, Option and Command.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <Qt>
#include <cstdint>

namespace glidemap {

// Valid only on platforms on which Qt's modifiers are named after the actual keys. On macOS, Qt
// reports Command as Control.
std::uint64_t modifierMask(Qt::KeyboardModifiers modifiers);

} // namespace glidemap
