// Port: prevents modifiers that the user holds on a real keyboard from changing typed shortcuts. On
// desktops that merge all keyboards, held modifiers would become part of a typed shortcut.
//
// Thread:  type() on one thread; `plainly` may be called on any thread. `plainly` of one type()
//          call is called before `plainly` of the next.
// Owner:   the virtual keyboard. The destructor completes all requested typing; `plainly` is not
//          called afterwards.
// Errors:  none; if the state cannot be determined, no modifier counts as held.
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <functional>
#include <vector>

namespace glidemap {

class HeldModifiers {
public:
    HeldModifiers() = default;
    HeldModifiers(const HeldModifiers&) = delete;
    HeldModifiers& operator=(const HeldModifiers&) = delete;
    virtual ~HeldModifiers() = default;

    // Types the changes as if no modifier were held. If no modifier is held, or the implementation
    // cannot type the changes itself, calls `plainly`, which must type them. Does not block.
    virtual void type(std::vector<KeyChange> changes, std::function<void()> plainly) = 0;
};

} // namespace glidemap
