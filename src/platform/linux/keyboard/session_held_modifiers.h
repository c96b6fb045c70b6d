// Chooses how held modifiers are kept out of typed shortcuts in this session.
//
// Thread:  any.
// Owner:   the virtual keyboard owns the result, and the desktop thread must outlive it.
// Errors:  null if nothing can be done: on a desktop that is neither X11 nor sway, or if the server
//          lacks an extension.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/held_modifiers.h"

#include <memory>

namespace glidemap {

std::unique_ptr<HeldModifiers> heldModifiersOfThisSession(DesktopThread& desktop);

} // namespace glidemap
