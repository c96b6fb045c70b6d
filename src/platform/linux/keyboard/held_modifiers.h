// Port: the modifiers that the user holds on real keyboards, which where all keyboards are one to
// the desktop would become part of a shortcut that they do not belong to.
//
// Thread:  type() on one thread; `plainly` is called on any, before the next one's.
// Owner:   the virtual keyboard. After it has been destroyed `plainly` is not called any more, and
// all that was asked has been done. Errors:  none; where nobody can tell what is held, nothing is.
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

    // Has the changes typed as if no modifier were held. Where indeed none is, that is `plainly`'s
    // to do. Does not wait for it.
    virtual void type(std::vector<KeyChange> changes, std::function<void()> plainly) = 0;
};

} // namespace glidemap
