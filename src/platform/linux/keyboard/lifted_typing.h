// Computes the key changes that type a shortcut while the user holds modifiers, on desktops where
// all keyboards share one modifier state: the held modifiers are released, the shortcut is typed,
// and the modifiers are pressed again.
//
// If Super or Alt is pressed and released alone, desktops and programs run a command of their own,
// such as opening a menu. To prevent this, Control is pressed and released in between.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace glidemap {

// Whether the changes release each key that they press, so that no key stays down.
bool areBalanced(std::span<const KeyChange> changes);

std::vector<KeyChange> typedWithout(std::span<const std::uint16_t> held,
                                    std::span<const KeyChange> changes);

std::vector<KeyChange> putBack(std::span<const std::uint16_t> held);

} // namespace glidemap
