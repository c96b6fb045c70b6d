// What has to be typed where one state of the modifiers is shared by all keyboards and the user
// holds some of them: they come up, the shortcut is typed, they go down again.
//
// A desktop takes Super, and a window Alt, that goes down and comes up with nothing between for a
// command of its own ("show the menu"). Wherever one of them seems to do that, Control is tapped
// between.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <cstdint>
#include <span>
#include <vector>

namespace glidemap {

// Whether each key that goes down comes up again, so that the changes can be typed from anywhere.
bool areBalanced(std::span<const KeyChange> changes);

std::vector<KeyChange> typedWithout(std::span<const std::uint16_t> held,
                                    std::span<const KeyChange> changes);

std::vector<KeyChange> putBack(std::span<const std::uint16_t> held);

} // namespace glidemap
