// Port: the modifiers that the user holds on real keyboards. On desktops that merge all keyboards
// they would become part of a typed shortcut.
//
// Thread:  type() on one thread; `plainly` may be called on any thread. The `plainly` of one call
//          is called before that of the next.
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

    // Types the changes as if no modifier were held. If none is held, calls `plainly` instead,
    // which must type them. Does not wait.
    virtual void type(std::vector<KeyChange> changes, std::function<void()> plainly) = 0;
};

} // namespace glidemap
