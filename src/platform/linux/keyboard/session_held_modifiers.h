// Chooses the implementation of HeldModifiers for the desktop of this session.
//
// Thread:  any.
// Owner:   the virtual keyboard owns the result. The desktop thread must outlive it.
// Errors:  returns null if there is no implementation: the session uses neither X11 nor sway, or
//          the X server cannot be reached or lacks an extension.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/held_modifiers.h"

#include <memory>

namespace glidemap {

std::unique_ptr<HeldModifiers> heldModifiersOfThisSession(DesktopThread& desktop);

} // namespace glidemap
