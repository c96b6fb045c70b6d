// Types a shortcut on desktops where all keyboards share one modifier state and the user holds
// modifiers: releases them, types the shortcut, and presses them again.
//
// Desktops and windows treat Super or Alt pressed and released alone as a command of its own, such
// as "show the menu". To prevent that, Control is tapped in between.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace glidemap {

// Whether each pressed key is released again, so that the changes leave no key down.
bool areBalanced(std::span<const KeyChange> changes);

std::vector<KeyChange> typedWithout(std::span<const std::uint16_t> held,
                                    std::span<const KeyChange> changes);

std::vector<KeyChange> putBack(std::span<const std::uint16_t> held);

} // namespace glidemap
