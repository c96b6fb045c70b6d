// Converts Qt modifiers to those that a shortcut stores: Shift, Control, Option and Command.
//
// Thread:  the main thread.
// Errors:  none.
#pragma once

#include <Qt>
#include <cstdint>

namespace glidemap {

// For platforms on which Qt names the actual keys. On macOS, Qt reports Command as Control.
std::uint64_t modifierMask(Qt::KeyboardModifiers modifiers);

} // namespace glidemap
